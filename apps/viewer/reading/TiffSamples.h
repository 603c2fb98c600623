// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/AlphaKind.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// How the samples of a TIFF file are stored.
struct TiffLayout
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bits = 0; // of a sample
    bool isFloat = false;
    bool isUnsigned = false;
    int samples = 0; // of a pixel
    int colours = 0; // 1 or 3 of the samples
    Optional<AlphaKind> alpha;
    bool isInverted = false; // 0 is white
    bool isPlanar = false;
    int orientation = 1;

    std::uint64_t byteCount() const;

    /// Returns whether rows of the file are columns of the picture.
    bool isTransposed() const { return orientation >= 5 && orientation <= 8; }
};

/// The image that a file becomes.
struct TiffImageFormat
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    PixelFormat pixels = PixelFormat::UINT16_RGB;
    float gamma = 1.0f;
};

/// Returns nullopt if an image cannot have that size.
Optional<TiffImageFormat> imageFormatOf(const TiffLayout& layout);

/// The size of a strip or a tile, in pixels.
struct TiffBlockSize
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// Turns the samples of a file into the pixels of an image.
class TiffSamples
{
public:
    TiffSamples(const TiffLayout& layout, const Image& image);

    /// The number of planes of a planar file that are shown.
    int planeCount() const;

    /// Puts a block whose first pixel is (x, y) into the image, but not what lies beyond the edges. In planar
    /// files, the block has the samples of one plane.
    void place(ArrayView<const std::byte> block, TiffBlockSize size, std::uint32_t x, std::uint32_t y,
               int plane, Image& image) const;

private:
    std::byte* pixelAt(Image& image, std::uint32_t x, std::uint32_t y) const;
    void placePixel(const std::byte* from, int sample, std::byte* to) const;
    void writeSample(const std::byte* from, std::byte* to) const;

    const TiffLayout& m_layout;
    std::size_t m_fileSampleBytes;
    std::size_t m_sampleBytes;
    std::size_t m_pixelBytes;
    int m_channels;
};

} // namespace Nolvex::Viewer
