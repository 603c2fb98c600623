// SPDX-License-Identifier: MIT
#include "apps/viewer/Development.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"
#include "apps/viewer/RowBands.h"

#include <wx/rawbmp.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr float SCREEN_GAMMA = 2.2f;
constexpr int COLOUR_BYTES = 3;
constexpr int OPAQUE_DEPTH = 24;
constexpr std::uint8_t OPAQUE_ALPHA = 255;

float factorOf(float exposure, float gamma)
{
    return std::exp2(gamma == 1.0f ? exposure / SCREEN_GAMMA : exposure);
}

template<class Value>
void showAsGrey(Rgb* pixels, std::size_t count, Value valueOf)
{
    for (std::size_t i = 0; i < count; ++i) {
        const float value = valueOf(pixels[i]);
        pixels[i] = {value, value, value, 1.0f};
    }
}

float luminance(const Rgb& pixel)
{
    return 0.2126f * pixel.r + 0.7152f * pixel.g + 0.0722f * pixel.b;
}

// Encodes a row: the colours, and alpha unless `alpha` is null.
class Encoder
{
public:
    Encoder(float exponent, std::size_t pixels) : m_isPower(exponent != 1.0f), m_power(exponent, pixels) {}

    void encode(const Rgb* pixels, std::uint8_t* colours, std::uint8_t* alpha, std::size_t count) const
    {
        if (m_isPower)
            m_power.encode(pixels, colours, alpha, count);
        else if (alpha != nullptr)
            Pixels::rgbToRgb8Alpha8(pixels, colours, alpha, count);
        else
            Pixels::rgbToRgb8(pixels, colours, count);
    }

private:
    bool m_isPower;
    Pixels::GammaEncoder m_power;
};

float signedPower(float value, float exponent)
{
    return std::copysign(std::pow(std::abs(value), exponent), value);
}

using PixelRow = std::vector<Rgb>;

// Puts the colours of a row, red first, into the order of the system's bitmaps.
void putInNativeOrder(std::uint8_t* colours, int width)
{
    if constexpr (wxNativePixelFormat::RED != 0) {
        for (int x = 0; x < width; ++x, colours += COLOUR_BYTES)
            std::swap(colours[0], colours[2]);
    }
}

// Reads pixels of one row from `start` on. The top row has the number 0 here, and the last one in the image.
void readPixels(const Image& image, Pixel start, Rgb* pixels, std::size_t count)
{
    const ImageDescriptor& descriptor = image.descriptor();
    const std::size_t offset =
        static_cast<std::size_t>(start.x) * Image::getPixelFormatByteCount(descriptor.format);
    const std::byte* const source = image.row(descriptor.height - 1 - start.y).data() + offset;
    Pixels::toRgb(descriptor.format, source, pixels, count);
}

// Develops the rows of a part of an image. Several threads may do so at once.
class PartDeveloper
{
public:
    PartDeveloper(const Image& image, const DisplaySettings& settings, const wxRect& part)
        : m_image(image),
          m_part(part),
          m_development(image.descriptor(), settings),
          m_encoder(m_development.exponent(),
                    static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height))
    {}

    bool isTransparent() const { return m_development.isTransparent(); }

    // Develops row `y` of the part. `row` is memory for the floats of a row, which stay in the cache of the
    // processor from the first change to the last.
    void develop(int y, PixelRow& row, std::uint8_t* colours, std::uint8_t* alphaOrNull) const
    {
        readPixels(m_image, {m_part.x, m_part.y + y}, row.data(), row.size());
        m_development.apply(row.data(), row.size());
        m_encoder.encode(row.data(), colours, alphaOrNull, row.size());
    }

private:
    const Image& m_image;
    wxRect m_part;
    Development m_development;
    Encoder m_encoder;
};

} // namespace

Development::Development(const ImageDescriptor& image, const DisplaySettings& settings)
    : m_factor(factorOf(settings.exposure, image.gamma)),
      m_channel(settings.channel),
      m_exponent(settings.channel == Channel::ALPHA ? 1.0f : 1.0f / image.gamma),
      m_transparent(settings.channel == Channel::RGB && Image::getPixelFormatChannelCount(image.format) == 4)
{}

void Development::apply(Rgb* pixels, std::size_t count) const
{
    const float factor = m_factor;
    switch (m_channel) {
    case Channel::RGB:
        for (std::size_t i = 0; i < count && factor != 1.0f; ++i) {
            const Rgb pixel = pixels[i];
            pixels[i] = {pixel.r * factor, pixel.g * factor, pixel.b * factor, pixel.a};
        }
        break;
    case Channel::RED:
        showAsGrey(pixels, count, [factor](const Rgb& pixel) { return pixel.r * factor; });
        break;
    case Channel::GREEN:
        showAsGrey(pixels, count, [factor](const Rgb& pixel) { return pixel.g * factor; });
        break;
    case Channel::BLUE:
        showAsGrey(pixels, count, [factor](const Rgb& pixel) { return pixel.b * factor; });
        break;
    case Channel::ALPHA:
        showAsGrey(pixels, count, [](const Rgb& pixel) { return pixel.a; });
        break;
    case Channel::LUMINANCE:
        showAsGrey(pixels, count, [factor](const Rgb& pixel) { return luminance(pixel) * factor; });
        break;
    }
}

PixelValues developPixel(const Image& image, const DisplaySettings& settings, Pixel position)
{
    Rgb stored;
    readPixels(image, position, &stored, 1);
    PixelValues values{stored, stored};
    if (image.descriptor().gamma == 1.0f) {
        for (float* channel : {&values.light.r, &values.light.g, &values.light.b})
            *channel = signedPower(*channel, SCREEN_GAMMA);
    }
    const Development development(image.descriptor(), settings);
    development.apply(&values.shown, 1);
    for (float* channel : {&values.shown.r, &values.shown.g, &values.shown.b, &values.shown.a})
        *channel = signedPower(*channel, development.exponent());
    if (!development.isTransparent())
        values.shown.a = 1.0f;
    return values;
}

wxImage develop(const Image& image, const DisplaySettings& settings, const wxRect& part)
{
    if (part.IsEmpty())
        return {};
    // The pixels need not be cleared: every byte is written below.
    wxImage result(part.width, part.height, false);
    if (!result.IsOk())
        return {};
    const PartDeveloper developer(image, settings, part);
    if (developer.isTransparent())
        result.SetAlpha();
    runInBands(part.height, [&](int first, int end) {
        PixelRow row(static_cast<std::size_t>(part.width));
        for (int y = first; y < end; ++y) {
            const std::size_t done = static_cast<std::size_t>(y) * static_cast<std::size_t>(part.width);
            developer.develop(y, row, result.GetData() + done * COLOUR_BYTES,
                              result.HasAlpha() ? result.GetAlpha() + done : nullptr);
        }
    });
    return result;
}

wxBitmap developBitmap(const Image& image, const DisplaySettings& settings, const wxRect& part)
{
    const PartDeveloper developer(image, settings, part);
    wxBitmap bitmap;
    if (part.IsEmpty() || !bitmap.Create(part.GetSize(), OPAQUE_DEPTH))
        return {};
    std::atomic<bool> isOpaque = true;
    {
        wxNativePixelData data(bitmap);
        if (!data)
            return {};
        runInBands(part.height, [&](int first, int end) {
            PixelRow row(static_cast<std::size_t>(part.width));
            std::vector<std::uint8_t> alpha(developer.isTransparent() ? static_cast<std::size_t>(part.width)
                                                                      : 0);
            wxNativePixelData::Iterator pixel(data);
            for (int y = first; y < end && isOpaque; ++y) {
                pixel.MoveTo(data, 0, y);
                auto* const colours = reinterpret_cast<std::uint8_t*>(pixel.m_ptr);
                developer.develop(y, row, colours, alpha.empty() ? nullptr : alpha.data());
                putInNativeOrder(colours, part.width);
                if (!std::ranges::all_of(alpha, [](std::uint8_t value) { return value == OPAQUE_ALPHA; }))
                    isOpaque = false;
            }
        });
    }
    return isOpaque ? bitmap : wxBitmap(develop(image, settings, part));
}

} // namespace Nolvex::Viewer
