// SPDX-License-Identifier: MIT
#include "apps/viewer/view/Development.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/RowBands.h"
#include "apps/viewer/view/ScreenEncoder.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr float SCREEN_GAMMA = 2.2f;
constexpr int COLOUR_BYTES = 3;

float signedPower(float value, float exponent)
{
    return std::copysign(std::pow(std::abs(value), exponent), value);
}

// False colour decodes the values itself, before the exposure.
float factorOf(const DisplaySettings& settings, bool isEncoded)
{
    const bool isOfEncoded = isEncoded && settings.falseColor == FalseColor::OFF;
    return isOfEncoded ? std::exp2(settings.exposure / SCREEN_GAMMA) : std::exp2(settings.exposure);
}

ScreenCurve curveOf(const ImageDescriptor& image, const DisplaySettings& settings)
{
    if (settings.falseColor != FalseColor::OFF || settings.channel == Channel::ALPHA)
        return {};
    const bool isEncoded = image.gamma == 1.0f;
    switch (settings.encoding) {
    case Encoding::SRGB:
        return {!isEncoded, 1.0f / settings.gamma};
    case Encoding::LINEAR:
        return {false, (isEncoded ? SCREEN_GAMMA : 1.0f) / settings.gamma};
    case Encoding::GAMMA:
        break;
    }
    return {false, 1.0f / image.gamma / settings.gamma};
}

template<class Value>
void showAsGrey(Rgb* pixels, std::size_t count, Value valueOf)
{
    for (std::size_t i = 0; i < count; ++i) {
        const float value = valueOf(pixels[i]);
        pixels[i] = {value, value, value, 1.0f};
    }
}

using PixelRow = std::vector<Rgb>;

} // namespace

Development::Development(const ImageDescriptor& image, const DisplaySettings& settings)
    : m_channel(settings.channel),
      m_encoded(image.gamma == 1.0f),
      m_falseColor(settings.falseColor != FalseColor::OFF),
      m_transparent(!m_falseColor && settings.channel == Channel::RGB &&
                    Image::getPixelFormatChannelCount(image.format) == 4),
      m_factor(factorOf(settings, m_encoded)),
      m_curve(curveOf(image, settings)),
      m_map(settings)
{}

void Development::apply(Rgb* pixels, std::size_t count) const
{
    if (m_falseColor)
        applyFalseColor(pixels, count);
    else
        applyChannel(pixels, count);
}

void Development::applyFalseColor(Rgb* pixels, std::size_t count) const
{
    if (m_encoded && m_channel != Channel::ALPHA) {
        for (std::size_t i = 0; i < count; ++i) {
            for (float* const value : {&pixels[i].r, &pixels[i].g, &pixels[i].b})
                *value = signedPower(*value, SCREEN_GAMMA);
        }
    }
    if (m_channel == Channel::RGB)
        showAsGrey(pixels, count, [this](const Rgb& pixel) { return luminance(pixel) * m_factor; });
    else
        applyChannel(pixels, count);
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = m_map.colorOf(pixels[i].r);
}

void Development::applyChannel(Rgb* pixels, std::size_t count) const
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

float luminance(const Rgb& pixel)
{
    return 0.2126f * pixel.r + 0.7152f * pixel.g + 0.0722f * pixel.b;
}

void readPixels(const Image& image, const Pixel& start, Rgb* pixels, std::size_t count)
{
    const ImageDescriptor& descriptor = image.descriptor();
    const std::size_t offset =
        static_cast<std::size_t>(start.x) * Image::getPixelFormatByteCount(descriptor.format);
    const std::byte* const source = image.row(descriptor.height - 1 - start.y).data() + offset;
    Pixels::toRgb(descriptor.format, source, pixels, count);
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
    values.shown = development.curve().at(values.shown);
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
    const Development development(image.descriptor(), settings);
    const auto width = static_cast<std::size_t>(part.width);
    const ScreenEncoder encoder(development.curve(), width * static_cast<std::size_t>(part.height));
    if (development.isTransparent())
        result.SetAlpha();
    runInBands(part.height, [&](int first, int end) {
        PixelRow row(width); // stays in the cache of the processor from the first change to the last
        for (int y = first; y < end; ++y) {
            const std::size_t done = static_cast<std::size_t>(y) * width;
            readPixels(image, {part.x, part.y + y}, row.data(), width);
            development.apply(row.data(), width);
            encoder.encode(row.data(), result.GetData() + done * COLOUR_BYTES,
                           result.HasAlpha() ? result.GetAlpha() + done : nullptr, width);
        }
    });
    return result;
}

} // namespace Nolvex::Viewer
