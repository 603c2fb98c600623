// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MemoryImages.h"

#include "NolvexLibWx/decoding/SoundImage.h"

#include <wx/debug.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <limits>
#include <new>

namespace Nolvex {

namespace {

using Decoding::CheckedImage;
using Decoding::SoundImage;

constexpr std::size_t MAX_SIZE = std::numeric_limits<std::int32_t>::max();

// Some decoders assert when a header makes no sense, but a broken file is no defect of the program.
class ScopedSilence
{
public:
    ScopedSilence() : m_assertHandler(wxSetAssertHandler(nullptr)) {}

    ~ScopedSilence() { wxSetAssertHandler(m_assertHandler); }

    ScopedSilence(const ScopedSilence&) = delete;
    ScopedSilence& operator=(const ScopedSilence&) = delete;

private:
    wxLogNull m_noLogging;
    wxAssertHandler_t m_assertHandler;
};

// Files of a format that the host has registered itself are not checked.
CheckedImage check(wxBitmapType type, ArrayView<const std::byte> bytes)
{
    switch (type) {
    case wxBITMAP_TYPE_PNG:
        return Decoding::checkPng(bytes);
    case wxBITMAP_TYPE_JPEG:
        return Decoding::checkJpeg(bytes);
    case wxBITMAP_TYPE_ICO:
        return Decoding::checkIco(bytes);
    case wxBITMAP_TYPE_BMP:
        return Decoding::checkBmp(bytes);
    case wxBITMAP_TYPE_GIF:
        return Decoding::checkGif(bytes);
    case wxBITMAP_TYPE_TIFF:
        return Decoding::checkTiff(bytes);
    case wxBITMAP_TYPE_TGA:
        return Decoding::checkTga(bytes);
    default:
        return SoundImage(bytes);
    }
}

// Turns a picture whose rows and columns are stored in another order than they are shown in.
wxImage upright(const wxImage& image, int orientation)
{
    switch (orientation) {
    case 2:
        return image.Mirror(true);
    case 3:
        return image.Rotate180();
    case 4:
        return image.Mirror(false);
    case 5:
        return image.Rotate90(true).Mirror(true);
    case 6:
        return image.Rotate90(true);
    case 7:
        return image.Rotate90(false).Mirror(true);
    case 8:
        return image.Rotate90(false);
    default:
        return image;
    }
}

enum class Cut
{
    ACCEPT,
    REFUSE,
};

Expected<wxImage, String> decodeAs(wxImageHandler& handler, ArrayView<const std::byte> bytes, Cut cut)
{
    const CheckedImage sound = check(handler.GetType(), bytes);
    if (!sound)
        return Unexpected{sound.error()};
    if (!sound->isWhole && cut == Cut::REFUSE)
        return Decoding::refuseShort();
    wxMemoryInputStream stream(sound->bytes().data(), sound->bytes().size());
    // The image is a new one for each decoder, because some decoders fail and leave in it what they have read
    // so far.
    wxImage image;
    // Without this flag libjpeg writes to the standard error stream.
    image.SetLoadFlags(image.GetLoadFlags() & ~wxImage::Load_Verbose);
    if (!image.LoadFile(stream, handler.GetType()))
        return Decoding::refuseDamaged();
    return upright(image, sound->orientation);
}

bool recognises(wxImageHandler& handler, ArrayView<const std::byte> bytes)
{
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return handler.CanRead(stream);
}

// Like wxImage, returns the picture of the first handler that recognises the bytes and decodes them. If all
// fail, the error of the first handler is returned, since later handlers recognise more than their own
// format.
Expected<wxImage, String> decode(ArrayView<const std::byte> bytes, wxBitmapType type, Cut cut)
{
    Optional<String> error;
    for (auto* node = wxImage::GetHandlers().GetFirst(); node != nullptr; node = node->GetNext()) {
        auto& handler = *static_cast<wxImageHandler*>(node->GetData());
        if ((type != wxBITMAP_TYPE_ANY && handler.GetType() != type) || !recognises(handler, bytes))
            continue;
        Expected<wxImage, String> image = decodeAs(handler, bytes, cut);
        if (image)
            return image;
        error = error.value_or(image.error());
    }
    return error ? Unexpected{*error} : Decoding::refuseDamaged();
}

// Returns an error if there is not enough memory, because decoders of wxWidgets may throw std::bad_alloc.
Expected<wxImage, String> decodeSilently(ArrayView<const std::byte> bytes, wxBitmapType type, Cut cut)
{
    const ScopedSilence silence;
    if (bytes.empty())
        return Decoding::refuseDamaged();
    if (bytes.size() > MAX_SIZE)
        return Decoding::refuseLarge();
    try {
        return decode(bytes, type, cut);
    } catch (const std::bad_alloc&) {
        return Unexpected{String(L"there is not enough memory for it")};
    }
}

wxImage decodeOrNone(ArrayView<const std::byte> bytes, wxBitmapType type)
{
    const Expected<wxImage, String> image = decodeSilently(bytes, type, Cut::ACCEPT);
    return image ? *image : wxImage();
}

} // namespace

wxImage Wx::convertMemoryToImage(const unsigned* data, int size, wxBitmapType type)
{
    if (data == nullptr || size < 1)
        return {};
    return decodeOrNone({reinterpret_cast<const std::byte*>(data), static_cast<std::size_t>(size)}, type);
}

wxImage Wx::convertStreamToImage(wxInputStream& stream, wxBitmapType type)
{
    constexpr std::size_t PIECE = std::size_t(1) << 16;
    try {
        Array<std::byte> bytes;
        std::size_t size = 0;
        do {
            bytes.resize(size + PIECE);
            size += stream.Read(bytes.data() + size, PIECE).LastRead();
        } while (stream.IsOk() && size <= MAX_SIZE);
        return decodeOrNone(ArrayView<const std::byte>(bytes).first(size), type);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

wxBitmap Wx::convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type)
{
    const wxImage image = convertMemoryToImage(data, size, type);
    return image.IsOk() ? wxBitmap(image, wxBITMAP_SCREEN_DEPTH, 1.0) : wxBitmap();
}

Expected<wxImage, String> Wx::decodeWholeImage(ArrayView<const std::byte> bytes)
{
    return decodeSilently(bytes, wxBITMAP_TYPE_ANY, Cut::REFUSE);
}

} // namespace Nolvex
