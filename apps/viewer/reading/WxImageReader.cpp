// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/WxImageReader.h"

#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLibWx/MemoryImages.h"
#include "apps/viewer/reading/Omissions.h"
#include "apps/viewer/reading/WxImagePixels.h"

#include <wx/image.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// Removes the pieces of a GIF block from the front. Each begins with its length, and the last one is empty.
bool skipPieces(ArrayView<const std::byte>& bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = std::to_integer<std::size_t>(bytes[0]) + 1;
        if (length > bytes.size())
            return false;
        bytes = bytes.subspan(length);
        if (length == 1)
            return true;
    }
    return false;
}

// Returns the number of bytes of the table of colours that the flags tell of.
std::size_t tableBytes(std::byte flags)
{
    constexpr std::byte HAS_TABLE{0x80};
    constexpr std::byte SIZE{0x07};
    return (flags & HAS_TABLE) == std::byte(0) ? 0
                                               : std::size_t(3) << (std::to_integer<int>(flags & SIZE) + 1);
}

// Removes a block from the front, whose header has so many bytes and may be followed by a table of colours.
bool skipBlock(ArrayView<const std::byte>& bytes, std::size_t headerBytes, std::size_t table)
{
    if (bytes.size() < headerBytes + table)
        return false;
    bytes = bytes.subspan(headerBytes + table);
    return skipPieces(bytes);
}

std::uint64_t gifFrames(ArrayView<const std::byte> file)
{
    constexpr std::size_t FLAGS = 10; // where the flags of the file stand
    constexpr std::size_t FRAME_FLAGS = 9;
    constexpr std::size_t HEADER_BYTES = 13;
    constexpr std::byte FRAME{0x2c};
    constexpr std::byte EXTENSION{0x21};
    if (file.size() < HEADER_BYTES || std::memcmp(file.data(), "GIF8", 4) != 0)
        return 0;
    std::uint64_t frames = 0;
    ArrayView<const std::byte> rest =
        file.subspan(std::min(file.size(), HEADER_BYTES + tableBytes(file[FLAGS])));
    while (rest.size() > FRAME_FLAGS && (rest[0] == FRAME || rest[0] == EXTENSION)) {
        const bool isFrame = rest[0] == FRAME;
        // The size of the codes follows the header of a frame.
        if (!skipBlock(rest, isFrame ? FRAME_FLAGS + 2 : 2, isFrame ? tableBytes(rest[FRAME_FLAGS]) : 0))
            break;
        frames += isFrame ? 1 : 0;
    }
    return frames;
}

} // namespace

Array<String> WxImageReader::extensions() const
{
    Array<String> all;
    for (const ImageFormat format :
         {ImageFormat::JPEG, ImageFormat::BMP, ImageFormat::GIF, ImageFormat::TARGA, ImageFormat::ICO}) {
        for (const String& extension : getImageFormatDescriptor(format).extensions)
            all.push_back(extension);
    }
    return all;
}

// TGA files cannot be told by how they begin.
bool WxImageReader::knows(ArrayView<const std::byte> /*file*/) const
{
    return true;
}

// The decoders of wxWidgets count bytes in int.
std::uint64_t WxImageReader::maxFileBytes() const
{
    return std::numeric_limits<std::int32_t>::max();
}

Expected<ReadImage, String> WxImageReader::read(ArrayView<const std::byte> file, std::size_t /*layer*/,
                                                const ReadingProgress& /*progress*/) const
{
    Expected<wxImage, String> decoded = Wx::decodeWholeImage(file);
    if (!decoded)
        return Unexpected{decoded.error()};
    if (decoded->HasMask() && !decoded->HasAlpha())
        decoded->InitAlpha();
    Expected<Image, String> image = toImage(*decoded);
    if (!image)
        return Unexpected{image.error()};
    return ReadImage{.image = std::move(*image), .omissions = omittedFrames(gifFrames(file))};
}

} // namespace Nolvex::Viewer
