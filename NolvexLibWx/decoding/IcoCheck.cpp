// SPDX-License-Identifier: MIT
#include "NolvexLibWx/decoding/ByteReader.h"
#include "NolvexLibWx/decoding/DibHeader.h"
#include "NolvexLibWx/decoding/SoundImage.h"

#include <algorithm>
#include <array>

// wxICOHandler has the same faults as wxBMPHandler and wxPNGHandler.

namespace Nolvex {

namespace {

using Decoding::ByteReader;

constexpr std::size_t COUNT_PLACE = 4;
constexpr std::size_t DIRECTORY_START = 6;

// Returns the position of the picture that wxICOHandler chooses: the widest, of these the one with the most
// colours, and of equal pictures the last. Returns 0 if the directory is cut off.
std::size_t findChosenPicture(ArrayView<const std::byte> file)
{
    std::uint32_t widest = 0;
    std::uint32_t mostColours = 0;
    std::size_t chosen = 0;
    const std::uint32_t count = ByteReader(file, COUNT_PLACE).read16();
    ByteReader reader(file, DIRECTORY_START);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t storedWidth = reader.read8();
        const std::uint32_t width = storedWidth == 0 ? 256 : storedWidth;
        reader.skip(1);
        const std::uint32_t storedColours = reader.read8();
        const std::uint32_t colours = storedColours == 0 ? 255 : storedColours;
        reader.skip(9);
        const std::size_t start = reader.read32();
        if (width >= widest && colours >= mostColours) {
            widest = width;
            mostColours = colours;
            chosen = start;
        }
    }
    return reader.ranOut() ? 0 : chosen;
}

bool isPng(ArrayView<const std::byte> picture)
{
    constexpr std::array<unsigned char, 8> SIGNATURE{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return picture.size() >= SIGNATURE.size() &&
           std::equal(SIGNATURE.begin(), SIGNATURE.end(), picture.begin(),
                      [](unsigned char a, std::byte b) { return std::byte(a) == b; });
}

// Checks the picture's rows and the mask with one bit a pixel that follows them.
Decoding::CheckedImage checkDib(ArrayView<const std::byte> file, std::size_t start)
{
    const Optional<Decoding::DibHeader> header = Decoding::readDibHeader(file, start, true);
    if (!header || !header->isUsualSize() || header->compression != Decoding::DibHeader::Compression::NONE)
        return Decoding::refuseDamaged();
    if (!Decoding::fitsWxImage(static_cast<std::uint64_t>(header->width),
                               static_cast<std::uint64_t>(header->height)))
        return Decoding::refuseLarge();
    Decoding::DibHeader mask = *header;
    mask.bits = 1;
    const std::size_t maskStart =
        header->end + header->stride(header->bits) * static_cast<std::size_t>(header->height);
    if (!mask.hasRows(maskStart, file.size()))
        return Decoding::refuseShort();
    if (!header->pixelsAreInPalette(file, header->end))
        return Decoding::refuseDamaged();
    return Decoding::SoundImage(file);
}

} // namespace

Decoding::CheckedImage Decoding::checkIco(ArrayView<const std::byte> file)
{
    const std::size_t start = findChosenPicture(file);
    if (start < DIRECTORY_START)
        return refuseDamaged();
    if (start >= file.size())
        return refuseShort();
    if (!isPng(file.subspan(start)))
        return checkDib(file, start);
    CheckedImage png = checkPng(file.subspan(start));
    if (!png)
        return png;
    return SoundImage(file);
}

} // namespace Nolvex
