// SPDX-License-Identifier: MIT
#include "NolvexLibWx/BitmapConverter.h"

#include "NolvexLibImage/Image.h"
#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace Nolvex {

namespace {

constexpr std::size_t COLOUR_BYTES = 3;

// The rows of the image as floats. Rows that are floats already are read in place, others through a buffer of
// one row.
class RgbRows
{
public:
    explicit RgbRows(const Image& image)
        : m_image(image), m_inPlace(image.descriptor().format == PixelFormat::FLOAT32_RGBA)
    {
        if (!m_inPlace)
            m_buffer = std::make_unique<Rgb[]>(static_cast<std::size_t>(image.descriptor().width));
    }

    const Rgb* operator[](std::int32_t y)
    {
        if (m_inPlace)
            return reinterpret_cast<const Rgb*>(m_image.row(y).data());
        m_image.readRow(y, m_buffer.get());
        return m_buffer.get();
    }

private:
    const Image& m_image;
    bool m_inPlace;
    std::unique_ptr<Rgb[]> m_buffer;
};

// Calls encode(pixels, colour bytes, alpha bytes or null) for every row, from the top of the result down.
template<class Encode>
void encodeRows(const Image& image, wxImage& result, Encode encode)
{
    const auto width = static_cast<std::size_t>(image.descriptor().width);
    const std::int32_t height = image.descriptor().height;
    RgbRows rows(image);
    for (std::int32_t row = 0; row < height; ++row) {
        const std::size_t start = static_cast<std::size_t>(row) * width;
        encode(rows[height - 1 - row], result.GetData() + start * COLOUR_BYTES,
               result.HasAlpha() ? result.GetAlpha() + start : nullptr);
    }
}

// A wxImage counts its bytes in int.
bool fitsWxImage(const ImageDescriptor& descriptor)
{
    const std::int64_t pixels = static_cast<std::int64_t>(descriptor.width) * descriptor.height;
    return pixels > 0 &&
           pixels <= std::numeric_limits<std::int32_t>::max() / static_cast<std::int64_t>(COLOUR_BYTES);
}

} // namespace

wxImage BitmapConverter::zephraImageToWxImage(const Image& image)
{
    const ImageDescriptor& descriptor = image.descriptor();
    if (!fitsWxImage(descriptor))
        return {};
    // The pixels need not be cleared: every byte is written below.
    wxImage result(descriptor.width, descriptor.height, false);
    if (!result.IsOk())
        return {};
    if (Image::getPixelFormatChannelCount(descriptor.format) == 4)
        result.SetAlpha();

    const auto width = static_cast<std::size_t>(descriptor.width);
    const float exponent = 1.0f / descriptor.gamma;
    if (exponent != 1.0f) {
        const Pixels::GammaEncoder encoder(exponent, width * static_cast<std::size_t>(descriptor.height));
        encodeRows(image, result, [&](const Rgb* pixels, std::uint8_t* colours, std::uint8_t* alpha) {
            encoder.encode(pixels, colours, alpha, width);
        });
    } else {
        encodeRows(image, result, [&](const Rgb* pixels, std::uint8_t* colours, std::uint8_t* alpha) {
            if (alpha != nullptr)
                Pixels::rgbToRgb8Alpha8(pixels, colours, alpha, width);
            else
                Pixels::rgbToRgb8(pixels, colours, width);
        });
    }
    return result;
}

wxBitmap BitmapConverter::zephraImageToWxBitmap(const Image& image)
{
    const wxImage converted = zephraImageToWxImage(image);
    return converted.IsOk() ? wxBitmap(converted, wxBITMAP_SCREEN_DEPTH, 1.0) : wxBitmap();
}

} // namespace Nolvex
