// SPDX-License-Identifier: MIT
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

// libjpeg survives damaged data, but wxJPEGHandler allocates and fills as much as the header claims before it
// reads the first pixel, and every scan of a progressive file costs a pass over the whole picture.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

constexpr std::uint32_t MARKER = 0xFF;
constexpr std::uint32_t END_OF_IMAGE = 0xD9;
constexpr std::uint32_t START_OF_SCAN = 0xDA;

// Encoders write about ten scans.
constexpr int MAX_SCANS = 500;

struct Structure
{
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    int scans = 0;
    bool hasEnd = false;
};

bool isFrameHeader(std::uint32_t marker)
{
    constexpr std::uint32_t HUFFMAN_TABLES = 0xC4;
    constexpr std::uint32_t RESERVED = 0xC8;
    constexpr std::uint32_t ARITHMETIC_TABLES = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != HUFFMAN_TABLES && marker != RESERVED &&
           marker != ARITHMETIC_TABLES;
}

// Returns the next marker, or nullopt if the file ends before it. Skips filling and entropy-coded data, in
// which 0xFF is followed by 0 or is part of a restart marker.
Optional<std::uint32_t> nextMarker(ByteReader& reader)
{
    std::uint32_t previous = 0;
    while (reader.left() > 0) {
        const std::uint32_t byte = reader.read8();
        const bool isRestart = byte >= 0xD0 && byte <= 0xD7;
        if (previous == MARKER && byte != 0 && byte != MARKER && !isRestart)
            return byte;
        previous = byte;
    }
    return {};
}

Structure readStructure(ArrayView<const std::byte> file)
{
    Structure structure;
    ByteReader reader(file, 2, std::endian::big);
    while (const Optional<std::uint32_t> marker = nextMarker(reader)) {
        if (*marker == END_OF_IMAGE) {
            structure.hasEnd = true;
            break;
        }
        const std::size_t start = reader.position();
        const std::size_t length = reader.read16();
        if (isFrameHeader(*marker) && structure.width == 0) {
            reader.skip(1);
            structure.height = reader.read16();
            structure.width = reader.read16();
        }
        structure.scans += *marker == START_OF_SCAN ? 1 : 0;
        reader = ByteReader(file, start, std::endian::big);
        reader.skip(length);
    }
    return structure;
}

} // namespace

Decoding::CheckedImage Decoding::checkJpeg(ArrayView<const std::byte> file)
{
    const Structure structure = readStructure(file);
    if (structure.width == 0 || structure.height == 0 || structure.scans == 0)
        return structure.hasEnd ? refuseDamaged() : refuseShort();
    if (!fitsWxImage(structure.width, structure.height))
        return refuseLarge();
    if (!isPlausible(structure.width * structure.height, file.size()))
        return refuseShort();
    if (structure.scans > MAX_SCANS)
        return refuseDamaged();
    SoundImage image(file);
    image.isWhole = structure.hasEnd;
    return image;
}

} // namespace Nolvex
