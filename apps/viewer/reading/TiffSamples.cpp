// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/TiffSamples.h"

#include "apps/viewer/reading/PictureReader.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace Nolvex::Viewer {

namespace {

constexpr int BYTE_BITS = 8;
constexpr int ALPHA_CHANNEL = 3;

template<class Number>
Number numberAt(const std::byte* from)
{
    Number number;
    std::memcpy(&number, from, sizeof number);
    return number;
}

template<class Number>
void putNumber(Number number, std::byte* to)
{
    std::memcpy(to, &number, sizeof number);
}

PixelFormat pixelFormatOf(const TiffLayout& layout)
{
    const int channels = layout.alpha ? 4 : layout.colours;
    const bool isGrey = channels == 1;
    const bool isColour = channels == 3;
    if (!layout.isFloat && layout.bits == 8)
        return isGrey ? PixelFormat::UINT8_GREY : isColour ? PixelFormat::UINT8_RGB : PixelFormat::UINT8_RGBA;
    if (!layout.isFloat && layout.bits == 16)
        return isGrey     ? PixelFormat::UINT16_GREY
               : isColour ? PixelFormat::UINT16_RGB
                          : PixelFormat::UINT16_RGBA;
    if (layout.bits == 16)
        return isGrey     ? PixelFormat::FLOAT16_GREY
               : isColour ? PixelFormat::FLOAT16_RGB
                          : PixelFormat::FLOAT16_RGBA;
    return isGrey     ? PixelFormat::FLOAT32_GREY
           : isColour ? PixelFormat::FLOAT32_RGB
                      : PixelFormat::FLOAT32_RGBA;
}

} // namespace

std::uint64_t TiffLayout::byteCount() const
{
    const auto pixelBytes =
        static_cast<std::uint64_t>(samples) * static_cast<std::uint64_t>(bits / BYTE_BITS);
    const std::uint64_t rowBytes = width * pixelBytes;
    const bool fits = height == 0 || rowBytes <= std::numeric_limits<std::uint64_t>::max() / height;
    return fits ? rowBytes * height : std::numeric_limits<std::uint64_t>::max();
}

Optional<TiffImageFormat> imageFormatOf(const TiffLayout& layout)
{
    constexpr std::uint32_t MAX_LENGTH = std::numeric_limits<std::int32_t>::max();
    if (layout.width > MAX_LENGTH || layout.height > MAX_LENGTH)
        return {};
    TiffImageFormat format{.width = static_cast<std::int32_t>(layout.width),
                           .height = static_cast<std::int32_t>(layout.height),
                           .pixels = pixelFormatOf(layout),
                           .gamma = layout.isFloat ? GAMMA_OF_LIGHT : GAMMA_OF_ENCODED};
    if (layout.isTransposed())
        std::swap(format.width, format.height);
    return format;
}

TiffSamples::TiffSamples(const TiffLayout& layout, const Image& image)
    : m_layout(layout),
      m_fileSampleBytes(static_cast<std::size_t>(layout.bits / BYTE_BITS)),
      m_sampleBytes(Image::getPixelFormatByteCount(image.descriptor().format) /
                    static_cast<std::size_t>(Image::getPixelFormatChannelCount(image.descriptor().format))),
      m_pixelBytes(Image::getPixelFormatByteCount(image.descriptor().format)),
      m_channels(Image::getPixelFormatChannelCount(image.descriptor().format))
{}

int TiffSamples::planeCount() const
{
    return m_layout.colours + (m_layout.alpha ? 1 : 0);
}

void TiffSamples::place(ArrayView<const std::byte> block, TiffBlockSize size, std::uint32_t x,
                        std::uint32_t y, int plane, Image& image) const
{
    const int samplesOfBlock = m_layout.isPlanar ? 1 : m_layout.samples;
    const std::size_t pixelStep = static_cast<std::size_t>(samplesOfBlock) * m_fileSampleBytes;
    const std::uint32_t columns = std::min(size.width, m_layout.width - x);
    const std::uint32_t rows = std::min(size.height, m_layout.height - y);
    for (std::uint32_t row = 0; row < rows; ++row) {
        const std::byte* from = block.data() + static_cast<std::size_t>(row) * size.width * pixelStep;
        for (std::uint32_t column = 0; column < columns; ++column, from += pixelStep) {
            std::byte* const to = pixelAt(image, x + column, y + row);
            if (m_layout.isPlanar)
                placePixel(from, plane, to);
            else
                for (int sample = 0; sample < planeCount(); ++sample)
                    placePixel(from + static_cast<std::size_t>(sample) * m_fileSampleBytes, sample, to);
        }
    }
}

// Returns where the pixel of the file belongs. The orientation names the corner of the picture at which the
// first row and the first column of the file lie.
std::byte* TiffSamples::pixelAt(Image& image, std::uint32_t x, std::uint32_t y) const
{
    auto column = static_cast<std::int32_t>(m_layout.isTransposed() ? y : x);
    auto row = static_cast<std::int32_t>(m_layout.isTransposed() ? x : y);
    const ImageDescriptor& size = image.descriptor();
    const int corner = m_layout.orientation;
    if (corner == 2 || corner == 3 || corner == 6 || corner == 7)
        column = size.width - 1 - column;
    if (corner == 3 || corner == 4 || corner == 7 || corner == 8)
        row = size.height - 1 - row;
    // The bottom row of an image comes first.
    return image.row(size.height - 1 - row).data() + static_cast<std::size_t>(column) * m_pixelBytes;
}

// Places one sample of a pixel. Grey with alpha becomes three equal colours.
void TiffSamples::placePixel(const std::byte* from, int sample, std::byte* to) const
{
    const bool isAlpha = sample == m_layout.colours;
    const int first = isAlpha ? ALPHA_CHANNEL : sample;
    const int last = !isAlpha && m_layout.colours == 1 && m_channels > 1 ? ALPHA_CHANNEL - 1 : first;
    std::byte value[sizeof(float)] = {};
    writeSample(from, value);
    if (m_layout.isInverted && !isAlpha && !m_layout.isFloat) {
        if (m_sampleBytes == sizeof(std::uint8_t))
            putNumber(static_cast<std::uint8_t>(~numberAt<std::uint8_t>(value)), value);
        else if (m_sampleBytes == sizeof(std::uint16_t))
            putNumber(static_cast<std::uint16_t>(~numberAt<std::uint16_t>(value)), value);
        else
            putNumber(1.0f - numberAt<float>(value), value);
    }
    for (int channel = first; channel <= last; ++channel)
        std::memcpy(to + static_cast<std::size_t>(channel) * m_sampleBytes, value, m_sampleBytes);
}

// libtiff has already turned the bytes into the order that the processor uses.
void TiffSamples::writeSample(const std::byte* from, std::byte* to) const
{
    if (m_fileSampleBytes == sizeof(double))
        putNumber(static_cast<float>(numberAt<double>(from)), to);
    else if (m_fileSampleBytes == sizeof(float) && !m_layout.isFloat)
        putNumber(static_cast<float>(numberAt<std::uint32_t>(from) /
                                     static_cast<double>(std::numeric_limits<std::uint32_t>::max())),
                  to);
    else
        std::memcpy(to, from, m_fileSampleBytes);
}

} // namespace Nolvex::Viewer
