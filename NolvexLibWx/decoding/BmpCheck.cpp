// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/DibHeader.h"
#include "NolvexLibWx/decoding/PlainDib.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <algorithm>

// wxBMPHandler writes wherever run-length codes lead, even outside of the picture, reads beyond short
// palettes, and allocates as much as the header claims before it reads the first pixel. It decodes run-length
// encoding, 16 bits a pixel and bit fields wrongly or not at all.

namespace Nolvex {

namespace {

constexpr std::size_t FILE_HEADER_SIZE = 14;
constexpr std::size_t PIXELS_START_PLACE = 10;

bool isReadRightly(const Decoding::DibHeader& header)
{
    return header.compression == Decoding::DibHeader::Compression::NONE && header.bits != 16;
}

} // namespace

Decoding::CheckedImage Decoding::checkBmp(ArrayView<const std::byte> file)
{
    const Optional<DibHeader> header = readDibHeader(file, FILE_HEADER_SIZE, false);
    if (!header || header->width < 1 || header->height < 1)
        return refuseDamaged();
    if (!header->isUsualSize() ||
        !fitsWxImage(static_cast<std::uint64_t>(header->width), static_cast<std::uint64_t>(header->height)))
        return refuseLarge();
    const std::size_t start =
        std::max<std::size_t>(header->end, ByteReader(file, PIXELS_START_PLACE).read32());
    if (!isReadRightly(*header)) {
        Expected<Array<std::byte>, String> plain = toPlainBmp(file, *header, start);
        if (!plain)
            return Unexpected{plain.error()};
        return SoundImage(std::move(*plain));
    }
    if (!header->hasRows(start, file.size()))
        return refuseShort();
    if (!header->pixelsAreInPalette(file, start))
        return refuseDamaged();
    return SoundImage(file);
}

} // namespace Nolvex
