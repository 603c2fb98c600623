// SPDX-License-Identifier: MIT
#include "apps/viewer/view/Development.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/Light.h"

#include <cmath>

namespace Nolvex::Viewer {

namespace {

// The factor for the values of the image. False colour makes light of the values before the exposure.
float factorOf(const DisplaySettings& settings, float lightExponent)
{
    const bool isOfLight = settings.falseColor != FalseColor::OFF;
    return std::exp2(isOfLight ? settings.exposure : settings.exposure / lightExponent);
}

ScreenCurve curveOf(const ImageDescriptor& image, const DisplaySettings& settings)
{
    if (settings.falseColor != FalseColor::OFF || settings.channel == Channel::ALPHA)
        return {};
    switch (settings.encoding) {
    case Encoding::SRGB:
        return {image.gamma != GAMMA_OF_ENCODED, 1.0f / settings.gamma, lightExponent(image.gamma)};
    case Encoding::LINEAR:
        return {false, lightExponent(image.gamma) / settings.gamma};
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

void raise(Rgb& pixel, float exponent)
{
    for (float* const value : {&pixel.r, &pixel.g, &pixel.b})
        *value = signedPower(*value, exponent);
}

} // namespace

Development::Development(const ImageDescriptor& image, const DisplaySettings& settings)
    : m_channel(settings.channel),
      m_falseColor(settings.falseColor != FalseColor::OFF),
      m_transparent(!m_falseColor && settings.channel == Channel::RGB &&
                    Image::getPixelFormatChannelCount(image.format) == 4),
      m_lightExponent(lightExponent(image.gamma)),
      m_factor(factorOf(settings, m_lightExponent)),
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
    if (m_lightExponent != 1.0f && m_channel != Channel::ALPHA) {
        for (std::size_t i = 0; i < count; ++i)
            raise(pixels[i], m_lightExponent);
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
    raise(values.light, lightExponent(image.descriptor().gamma));
    const Development development(image.descriptor(), settings);
    development.apply(&values.shown, 1);
    values.shown = development.curve().at(values.shown);
    if (!development.isTransparent())
        values.shown.a = 1.0f;
    return values;
}

} // namespace Nolvex::Viewer
