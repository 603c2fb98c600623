// SPDX-License-Identifier: MIT
#include "apps/viewer/WholeImage.h"

#include "NolvexLibWx/MemoryImages.h"

#include <wx/mstream.h>

#include <string_view>

namespace Nolvex::Viewer {

namespace {

// Notices a decoder that wants more than there is.
class WatchedStream : public wxMemoryInputStream
{
public:
    explicit WatchedStream(ArrayView<const std::byte> bytes) : wxMemoryInputStream(bytes.data(), bytes.size())
    {}

    bool ranDry() const { return m_ranDry; }

protected:
    std::size_t OnSysRead(void* buffer, std::size_t count) override
    {
        const std::size_t read = wxMemoryInputStream::OnSysRead(buffer, count);
        m_ranDry = m_ranDry || read < count;
        return read;
    }

    // What was read before going back to the start was a look at the format.
    wxFileOffset OnSysSeek(wxFileOffset position, wxSeekMode mode) override
    {
        const wxFileOffset reached = wxMemoryInputStream::OnSysSeek(position, mode);
        if (reached == 0)
            m_ranDry = false;
        return reached;
    }

private:
    bool m_ranDry = false;
};

bool isJpeg(std::string_view text)
{
    return text.starts_with("\xFF\xD8\xFF");
}

// The position behind the entropy-coded data that begins at `position`: a 0xFF in it is followed by 0 or by a
// restart marker, every other marker ends it.
std::size_t nextJpegMarker(std::string_view text, std::size_t position)
{
    while ((position = text.find('\xFF', position)) != std::string_view::npos && position + 1 < text.size()) {
        const auto marker = static_cast<unsigned char>(text[position + 1]);
        const bool restart = marker >= 0xD0 && marker <= 0xD7;
        if (marker != 0 && marker != 0xFF && !restart)
            return position;
        position += marker == 0xFF ? 1 : 2;
    }
    return std::string_view::npos;
}

// JPEG is decoded in blocks, which says nothing about the end; there the end marker must be reached.
bool jpegHasItsEnd(std::string_view text)
{
    constexpr unsigned char END_OF_IMAGE = 0xD9;
    std::size_t position = nextJpegMarker(text, 2);
    while (position != std::string_view::npos) {
        if (static_cast<unsigned char>(text[position + 1]) == END_OF_IMAGE)
            return true;
        if (position + 4 > text.size())
            return false;
        const unsigned length = static_cast<unsigned char>(text[position + 2]) * 256u +
                                static_cast<unsigned char>(text[position + 3]);
        position = nextJpegMarker(text, position + 2 + length);
    }
    return false;
}

} // namespace

Expected<wxImage, String> decodeWholeImage(ArrayView<const std::byte> bytes)
{
    WatchedStream stream(bytes);
    const wxImage image = Wx::convertStreamToImage(stream, wxBITMAP_TYPE_ANY);
    if (!image.IsOk())
        return Unexpected{String(L"it is not a picture of a known format, or it is damaged")};
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (isJpeg(text) ? !jpegHasItsEnd(text) : stream.ranDry())
        return Unexpected{String(L"it ends before its last pixel")};
    return image;
}

} // namespace Nolvex::Viewer
