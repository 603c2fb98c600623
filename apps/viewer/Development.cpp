// SPDX-License-Identifier: MIT
#include "apps/viewer/Development.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibImage/pixels/GammaEncoder.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <future>
#include <thread>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr float SCREEN_GAMMA = 2.2f;
constexpr int COLOUR_BYTES = 3;
constexpr int MAX_THREADS = 8;

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

// Calls work(first, end) for bands of rows, on as many threads as the processor has cores.
template<class Work>
void runInBands(int rows, const Work& work)
{
    constexpr int MIN_ROWS = 64; // fewer are done before a thread has started
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    const int bands = std::clamp(std::min(cores, rows / MIN_ROWS), 1, MAX_THREADS);
    std::vector<std::future<void>> others;
    others.reserve(static_cast<std::size_t>(bands));
    const auto begin = [&](int band) { return static_cast<int>(std::int64_t(rows) * band / bands); };
    for (int band = 1; band < bands; ++band) {
        // The default policy runs the band in get() if no thread can be had.
        others.push_back(std::async(work, begin(band), begin(band + 1)));
    }
    work(0, begin(1));
    for (std::future<void>& other : others)
        other.get();
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

wxImage develop(const Image& image, const DisplaySettings& settings, const wxRect& part)
{
    const ImageDescriptor& descriptor = image.descriptor();
    if (part.IsEmpty())
        return {};
    // The pixels need not be cleared: every byte is written below.
    wxImage result(part.width, part.height, false);
    if (!result.IsOk())
        return {};
    const Development development(descriptor, settings);
    if (development.isTransparent())
        result.SetAlpha();

    const auto width = static_cast<std::size_t>(part.width);
    const std::size_t start =
        static_cast<std::size_t>(part.x) * Image::getPixelFormatByteCount(descriptor.format);
    const Encoder encoder(development.exponent(), width * static_cast<std::size_t>(part.height));
    // One row at a time, which stays in the cache of the processor from the first change to the last.
    const auto developRows = [&](int first, int end) {
        std::vector<Rgb> row(width);
        for (int y = first; y < end; ++y) {
            const std::byte* const source = image.row(descriptor.height - 1 - part.y - y).data() + start;
            Pixels::toRgb(descriptor.format, source, row.data(), width);
            development.apply(row.data(), width);
            const std::size_t done = static_cast<std::size_t>(y) * width;
            encoder.encode(row.data(), result.GetData() + done * COLOUR_BYTES,
                           result.HasAlpha() ? result.GetAlpha() + done : nullptr, width);
        }
    };
    runInBands(part.height, developRows);
    return result;
}

} // namespace Nolvex::Viewer
