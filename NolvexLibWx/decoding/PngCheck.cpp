// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

// libpng checks its input, but wxPNGHandler allocates as much as the header claims before it reads the first
// pixel, and passes uninitialised bytes to libpng where the file ends.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

constexpr std::size_t SIGNATURE_SIZE = 8;
constexpr std::uint32_t END_CHUNK = 0x49454E44; // "IEND"
constexpr std::size_t CHECKSUM_SIZE = 4;

bool reachesEndChunk(ArrayView<const std::byte> file)
{
    ByteReader reader(file, SIGNATURE_SIZE, std::endian::big);
    std::uint32_t kind = 0;
    while (kind != END_CHUNK && !reader.ranOut()) {
        const std::uint32_t length = reader.read32();
        kind = reader.read32();
        reader.skip(length);
        reader.skip(CHECKSUM_SIZE);
    }
    return !reader.ranOut();
}

} // namespace

Decoding::CheckedImage Decoding::checkPng(ArrayView<const std::byte> file)
{
    ByteReader reader(file, SIGNATURE_SIZE + 8, std::endian::big);
    const std::uint64_t width = reader.read32();
    const std::uint64_t height = reader.read32();
    if (reader.ranOut() || !reachesEndChunk(file))
        return refuseShort();
    if (width == 0 || height == 0)
        return refuseDamaged();
    if (!fitsWxImage(width, height))
        return refuseLarge();
    if (!isPlausible(width * height, file.size()))
        return refuseShort();
    return SoundImage(file);
}

} // namespace Nolvex
