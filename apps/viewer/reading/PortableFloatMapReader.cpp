// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/PortableFloatMapReader.h"

#include "apps/viewer/reading/BlankImage.h"
#include "apps/viewer/reading/ReadOutcome.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

struct Header
{
    PixelFormat format = PixelFormat::FLOAT32_RGB;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::endian byteOrder = std::endian::little;
    std::size_t length = 0;
};

std::string_view asText(ArrayView<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Removes white space and the number after it from the front of the text.
template<class Number>
bool takeNumber(std::string_view& text, Number& number)
{
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == 0 || start == std::string_view::npos)
        return false;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data() + start, end, number);
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return failure == std::errc();
}

Optional<Header> readHeader(ArrayView<const std::byte> bytes)
{
    Header header;
    std::string_view text = asText(bytes);
    if (text.starts_with("Pf"))
        header.format = PixelFormat::FLOAT32_GREY;
    text.remove_prefix(2);
    float scale = 0.0f;
    // One white-space character ends the header. The byte after it belongs to the first float.
    if (!takeNumber(text, header.width) || !takeNumber(text, header.height) || !takeNumber(text, scale) ||
        scale == 0.0f || text.empty() ||
        std::string_view(" \t\r\n").find(text.front()) == std::string_view::npos)
        return {};
    header.byteOrder = scale < 0.0f ? std::endian::little : std::endian::big;
    header.length = bytes.size() - text.size() + 1;
    return header;
}

void reverseFloats(ArrayView<std::byte> bytes)
{
    for (std::size_t i = 0; i + sizeof(float) <= bytes.size(); i += sizeof(float))
        std::reverse(bytes.begin() + static_cast<std::ptrdiff_t>(i),
                     bytes.begin() + static_cast<std::ptrdiff_t>(i + sizeof(float)));
}

} // namespace

Array<String> PortableFloatMapReader::extensions() const
{
    return {L"pfm"};
}

bool PortableFloatMapReader::knows(ArrayView<const std::byte> file) const
{
    const std::string_view text = asText(file);
    return text.starts_with("PF") || text.starts_with("Pf");
}

Expected<ReadImage, String> PortableFloatMapReader::read(ArrayView<const std::byte> file,
                                                         std::size_t /*layer*/,
                                                         const ReadingProgress& progress) const
{
    const Optional<Header> header = knows(file) ? readHeader(file) : Optional<Header>();
    if (!header)
        return Unexpected{String(L"its header is damaged")};
    if (header->width < 1 || header->height < 1)
        return Unexpected{String(L"it has no pixels")};

    // The size is checked before memory is allocated, because the header may claim any size.
    const ArrayView<const std::byte> body = file.subspan(header->length);
    const std::size_t pixelSize = Image::getPixelFormatByteCount(header->format);
    const auto pixels =
        static_cast<std::uint64_t>(header->width) * static_cast<std::uint64_t>(header->height);
    if (pixels > body.size() / pixelSize)
        return Unexpected{String(L"it ends before its last pixel")};

    Expected<Image, String> image = blankImage(header->width, header->height, header->format, GAMMA_OF_LIGHT);
    for (std::int32_t y = 0; image && y < header->height; ++y) {
        if (progress && !progress(static_cast<float>(y) / static_cast<float>(header->height)))
            return readFailure(ReadOutcome::STOPPED);
        const ArrayView<std::byte> row = image->row(y);
        std::memcpy(row.data(), body.data() + static_cast<std::size_t>(y) * row.size(), row.size());
        if (header->byteOrder != std::endian::native)
            reverseFloats(row);
    }
    if (!image)
        return Unexpected{image.error()};
    return ReadImage{std::move(*image), {}};
}

} // namespace Nolvex::Viewer
