// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/DibHeader.h"

#include "NolvexLibWx/decoding/ByteReader.h"

#include <limits>

namespace Nolvex::Decoding {

namespace {

using Compression = DibHeader::Compression;

constexpr std::uint32_t CORE_SIZE = 12;
constexpr std::uint32_t INFO_SIZE = 40;
constexpr std::uint32_t INFO_SIZE_WITH_ALPHA_MASK = 56;
constexpr std::uint32_t MAX_COLOURS = 256;

void setHeight(DibHeader& header, std::int32_t height)
{
    header.isTopDown = height < 0;
    // The lowest number cannot be negated. The height then stays 0 and is refused.
    if (height != std::numeric_limits<std::int32_t>::min())
        header.height = height < 0 ? -height : height;
}

bool isKnownDepth(std::uint32_t bits)
{
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

bool compressionFits(const DibHeader& header)
{
    switch (header.compression) {
    case Compression::NONE:
        return true;
    case Compression::RLE8:
        return header.bits == 8 && !header.isTopDown;
    case Compression::RLE4:
        return header.bits == 4 && !header.isTopDown;
    case Compression::BIT_FIELDS:
        return header.bits == 16 || header.bits == 32;
    }
    return false;
}

void readCore(ByteReader& reader, DibHeader& header)
{
    header.width = static_cast<std::int16_t>(reader.read16());
    setHeight(header, static_cast<std::int16_t>(reader.read16()));
    reader.skip(2);
    header.bits = reader.read16();
    header.paletteEntrySize = 3;
}

// The masks follow the shortest header and are part of the longer headers.
void readInfo(ByteReader& reader, DibHeader& header, std::uint32_t size)
{
    header.width = static_cast<std::int32_t>(reader.read32());
    setHeight(header, static_cast<std::int32_t>(reader.read32()));
    reader.skip(2);
    header.bits = reader.read16();
    header.compression = static_cast<Compression>(reader.read32());
    reader.skip(12);
    header.colours = reader.read32();
    reader.skip(4);
    if (header.compression != Compression::BIT_FIELDS) {
        reader.skip(size - INFO_SIZE);
        return;
    }
    const std::uint32_t masks = size >= INFO_SIZE_WITH_ALPHA_MASK ? 4 : 3;
    for (std::uint32_t i = 0; i < masks; ++i)
        header.masks[i] = reader.read32();
    const std::uint32_t read = INFO_SIZE + masks * 4;
    reader.skip(size > read ? size - read : 0);
}

} // namespace

bool DibHeader::hasRows(std::size_t start, std::size_t fileSize) const
{
    const std::size_t lastRow = (static_cast<std::size_t>(width) * bits + 7) / 8;
    const std::size_t size = stride(bits) * (static_cast<std::size_t>(height) - 1) + lastRow;
    return start <= fileSize && size <= fileSize - start;
}

bool DibHeader::pixelsAreInPalette(ArrayView<const std::byte> file, std::size_t start) const
{
    if (bits > 8 || colours >= 1u << bits)
        return true;
    const std::uint32_t pixelsPerByte = 8 / bits;
    for (std::int32_t y = 0; y < height; ++y) {
        const std::byte* const row = file.data() + start + stride(bits) * static_cast<std::size_t>(y);
        for (std::uint32_t x = 0; x < static_cast<std::uint32_t>(width); ++x) {
            const std::uint32_t shift = 8 - bits - x % pixelsPerByte * bits;
            const auto byte = std::to_integer<std::uint32_t>(row[x / pixelsPerByte]);
            if ((byte >> shift & ((1u << bits) - 1)) >= colours)
                return false;
        }
    }
    return true;
}

Optional<DibHeader> readDibHeader(ArrayView<const std::byte> file, std::size_t start, bool isIcon)
{
    ByteReader reader(file, start);
    const std::uint32_t size = reader.read32();
    DibHeader header;
    if (size == CORE_SIZE)
        readCore(reader, header);
    else if (size >= INFO_SIZE)
        readInfo(reader, header, size);
    else
        return {};
    if (isIcon)
        header.height /= 2;
    if (!isKnownDepth(header.bits) || !compressionFits(header) || header.colours > MAX_COLOURS)
        return {};
    if (header.colours == 0 && header.bits < 16)
        header.colours = 1u << header.bits;
    header.paletteStart = reader.position();
    reader.skip(header.colours * header.paletteEntrySize);
    header.end = reader.position();
    if (reader.ranOut())
        return {};
    return header;
}

} // namespace Nolvex::Decoding
