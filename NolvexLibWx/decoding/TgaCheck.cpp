// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <algorithm>

// wxTGAHandler reads and writes outside of palettes that do not start at colour 0, writes through a null
// pointer if palette and depth do not match, shows uninitialised memory where pixels are missing, subtracts
// the position of the image from its size, and ignores that rows may run leftwards.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

constexpr std::size_t HEADER_SIZE = 18;
constexpr std::size_t ORIGIN_START = 8;
constexpr std::size_t ORIGIN_END = 12;
constexpr std::uint32_t RUN_LENGTH_FLAG = 8;
constexpr std::uint32_t MAPPED = 1;
constexpr std::uint32_t TRUE_COLOUR = 2;
constexpr std::uint32_t GREY = 3;

struct Header
{
    std::size_t nameLength = 0;
    bool hasPalette = false;
    std::uint32_t type = 0;
    bool isCompressed = false;
    std::uint32_t paletteStart = 0;
    std::uint32_t paletteLength = 0;
    std::uint32_t paletteBits = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bits = 0;
    bool isLeftwards = false;
};

Header readHeader(ArrayView<const std::byte> file)
{
    constexpr std::uint32_t LEFTWARDS_FLAG = 0x10;
    ByteReader reader(file);
    Header header;
    header.nameLength = reader.read8();
    header.hasPalette = reader.read8() != 0;
    const std::uint32_t type = reader.read8();
    header.type = type & ~RUN_LENGTH_FLAG;
    header.isCompressed = (type & RUN_LENGTH_FLAG) != 0;
    header.paletteStart = reader.read16();
    header.paletteLength = reader.read16();
    header.paletteBits = reader.read8();
    reader.skip(ORIGIN_END - ORIGIN_START);
    header.width = reader.read16();
    header.height = reader.read16();
    header.bits = reader.read8();
    header.isLeftwards = (reader.read8() & LEFTWARDS_FLAG) != 0;
    return header;
}

// Returns true for the combinations that wxTGAHandler decodes safely.
bool isKnownKind(const Header& header)
{
    if (header.type == MAPPED) {
        constexpr std::uint32_t MAX_COLOURS = 256;
        const std::uint32_t bits = header.paletteBits;
        return header.hasPalette && header.bits == 8 && header.paletteStart == 0 &&
               header.paletteLength > 0 && header.paletteLength <= MAX_COLOURS &&
               (bits == 15 || bits == 16 || bits == 24 || bits == 32);
    }
    if (header.hasPalette)
        return false;
    if (header.type == TRUE_COLOUR)
        return header.bits == 16 || header.bits == 24 || header.bits == 32;
    return header.type == GREY && (header.bits == 8 || header.bits == 16);
}

// Returns true if the packets hold all pixels and the last packet ends with the last pixel.
bool packetsHold(ByteReader& reader, std::uint64_t pixels, std::size_t pixelSize)
{
    constexpr std::uint32_t RUN_FLAG = 0x80;
    while (pixels > 0) {
        const std::uint32_t packet = reader.read8();
        const std::uint32_t count = (packet & ~RUN_FLAG) + 1;
        reader.skip((packet & RUN_FLAG) != 0 ? pixelSize : count * pixelSize);
        if (reader.ranOut() || count > pixels)
            return false;
        pixels -= count;
    }
    return true;
}

bool holdsAllPixels(ArrayView<const std::byte> file, const Header& header)
{
    ByteReader reader(file, HEADER_SIZE);
    reader.skip(header.nameLength);
    if (header.hasPalette)
        reader.skip(std::size_t(header.paletteLength) * ((header.paletteBits + 7) / 8));
    const std::uint64_t pixels = std::uint64_t(header.width) * header.height;
    const std::size_t pixelSize = header.bits / 8;
    if (header.isCompressed)
        return packetsHold(reader, pixels, pixelSize);
    return !reader.ranOut() && pixels * pixelSize <= reader.left();
}

bool hasOrigin(ArrayView<const std::byte> file)
{
    return std::any_of(file.begin() + ORIGIN_START, file.begin() + ORIGIN_END,
                       [](std::byte byte) { return byte != std::byte(0); });
}

} // namespace

Decoding::CheckedImage Decoding::checkTga(ArrayView<const std::byte> file)
{
    if (file.size() < HEADER_SIZE)
        return refuseDamaged();
    const Header header = readHeader(file);
    if (!isKnownKind(header) || header.width == 0 || header.height == 0)
        return refuseDamaged();
    if (!fitsWxImage(header.width, header.height))
        return refuseLarge();
    if (!holdsAllPixels(file, header))
        return refuseShort();
    SoundImage image(file);
    if (hasOrigin(file)) {
        Array<std::byte> moved(file.begin(), file.end());
        std::fill(moved.begin() + ORIGIN_START, moved.begin() + ORIGIN_END, std::byte(0));
        image = SoundImage(std::move(moved));
    }
    image.orientation = header.isLeftwards ? 2 : 1;
    return image;
}

} // namespace Nolvex
