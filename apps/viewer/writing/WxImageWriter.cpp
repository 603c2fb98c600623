// SPDX-License-Identifier: MIT
#include "apps/viewer/writing/WxImageWriter.h"

#include "NolvexLib/Array.h"
#include "apps/viewer/writing/RowEncoder.h"

#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/quantize.h>

#include <cstring>
#include <limits>
#include <ostream>

namespace Nolvex::Viewer {

namespace {

constexpr int JPEG_QUALITY = 95;
constexpr std::int64_t COLOUR_BYTES = 3;

// A wxImage counts its bytes in int.
bool isTooLarge(const wxSize& image)
{
    return std::int64_t(image.x) * image.y * COLOUR_BYTES > std::numeric_limits<std::int32_t>::max();
}

void splitAlpha(const std::byte* row, std::size_t count, unsigned char* colours, unsigned char* alpha)
{
    for (std::size_t i = 0; i < count; ++i, row += COLOUR_BYTES + 1, colours += COLOUR_BYTES) {
        std::memcpy(colours, row, COLOUR_BYTES);
        alpha[i] = static_cast<unsigned char>(row[COLOUR_BYTES]);
    }
}

wxImage toWxImage(FileRows& rows)
{
    const bool alpha = rows.channelCount() == 4;
    const wxSize size = rows.size();
    wxImage result(size, false);
    if (alpha && result.IsOk())
        result.SetAlpha();
    if (!result.IsOk() || (alpha && result.GetAlpha() == nullptr))
        return {};
    Array<std::byte> row(rows.rowBytes());
    const auto width = static_cast<std::size_t>(size.x);
    for (int y = 0; y < size.y; ++y) {
        const std::size_t start = static_cast<std::size_t>(y) * width;
        unsigned char* const colours = result.GetData() + start * COLOUR_BYTES;
        rows.encode(y, row.data());
        if (alpha)
            splitAlpha(row.data(), width, colours, result.GetAlpha() + start);
        else
            std::memcpy(colours, row.data(), row.size());
    }
    return result;
}

// GIF files need a palette. By default wxWidgets reserves 20 colours for Windows, and would write them beyond
// the end of a palette of 256 colours.
bool reduceColours(wxImage& image)
{
    wxImage reduced;
    if (!wxQuantize::Quantize(image, reduced, 256, nullptr, wxQUANTIZE_FILL_DESTINATION_IMAGE))
        return false;
    image = reduced;
    return true;
}

} // namespace

Optional<String> writeByWxImage(std::ostream& stream, const Picture& source, wxBitmapType type, bool alpha)
{
    RowEncoder rows(source, ColorFormat::UINT8_RGB,
                    alpha ? Optional<AlphaKind>(AlphaKind::STRAIGHT) : Optional<AlphaKind>());
    return writeByWxImage(stream, rows, type);
}

Optional<String> writeByWxImage(std::ostream& stream, FileRows& rows, wxBitmapType type)
{
    if (isTooLarge(rows.size()))
        return String(L"the picture is too large for this format");
    wxImage picture = toWxImage(rows);
    if (!picture.IsOk())
        return String(L"there is not enough memory");
    picture.SetOption(wxIMAGE_OPTION_QUALITY, JPEG_QUALITY);
    wxMemoryOutputStream encoded;
    if ((type == wxBITMAP_TYPE_GIF && !reduceColours(picture)) || !picture.SaveFile(encoded, type))
        return String(L"the picture is too large for this format");
    const wxStreamBuffer* const buffer = encoded.GetOutputStreamBuffer();
    if (!stream.write(static_cast<const char*>(buffer->GetBufferStart()), encoded.GetLength()))
        return String(L"the file cannot be written");
    return {};
}

} // namespace Nolvex::Viewer
