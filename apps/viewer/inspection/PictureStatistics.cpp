// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/PictureStatistics.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "apps/viewer/RowBands.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <limits>
#include <mutex>
#include <vector>

namespace Nolvex::Viewer {

namespace {

constexpr std::size_t MAX_CHANNELS = 4;
constexpr std::size_t BINS = ChannelStatistics::BINS;

using Values = std::array<float, MAX_CHANNELS>;

Values valuesOf(const Rgb& pixel)
{
    return {pixel.r, pixel.g, pixel.b, pixel.a};
}

// What one pass over some rows gathers.
struct Gathered
{
    std::array<float, MAX_CHANNELS> min{};
    std::array<float, MAX_CHANNELS> max{};
    std::array<double, MAX_CHANNELS> sum{};
    std::array<std::int64_t, MAX_CHANNELS> finite{};
    std::array<std::int64_t, MAX_CHANNELS> nan{};
    std::array<std::int64_t, MAX_CHANNELS> infinite{};
    std::int64_t nanPixels = 0;

    Gathered()
    {
        min.fill(std::numeric_limits<float>::infinity());
        max.fill(-std::numeric_limits<float>::infinity());
    }

    void add(const Rgb& pixel, std::size_t channels)
    {
        const Values values = valuesOf(pixel);
        bool hasNan = false;
        for (std::size_t i = 0; i < channels; ++i) {
            const float value = values[i];
            if (std::isfinite(value)) {
                min[i] = std::min(min[i], value);
                max[i] = std::max(max[i], value);
                sum[i] += double(value);
                ++finite[i];
            } else if (std::isnan(value)) {
                ++nan[i];
                hasNan = true;
            } else {
                ++infinite[i];
            }
        }
        nanPixels += hasNan ? 1 : 0;
    }

    void add(const Gathered& other)
    {
        for (std::size_t i = 0; i < MAX_CHANNELS; ++i) {
            min[i] = std::min(min[i], other.min[i]);
            max[i] = std::max(max[i], other.max[i]);
            sum[i] += other.sum[i];
            finite[i] += other.finite[i];
            nan[i] += other.nan[i];
            infinite[i] += other.infinite[i];
        }
        nanPixels += other.nanPixels;
    }
};

using Histograms = std::array<std::array<std::int64_t, BINS>, MAX_CHANNELS>;

// Reads the rows of a part of an image, several threads at once, and tells the progress.
class PartRows
{
public:
    PartRows(const Image& image, const wxRect& part, const Progress& progress)
        : m_image(image), m_part(part), m_progress(progress)
    {}

    // Calls use(row) for each row of the part, with a state of its own for each thread, and adds the states
    // up by add(state). Returns whether all rows were read.
    template<class State, class Use, class Add>
    bool forEach(float shareBefore, const Use& use, const Add& add)
    {
        m_rowsDone = 0;
        runInBands(m_part.height, [&](int first, int end) {
            std::vector<Rgb> row(static_cast<std::size_t>(m_part.width));
            State state{};
            for (int y = first; y < end && !m_isStopped; ++y) {
                read(y, row);
                for (const Rgb& pixel : row)
                    use(state, pixel);
                ++m_rowsDone;
                // The progress is called by one thread alone. There are two passes.
                if (first == 0 && m_progress &&
                    !m_progress(shareBefore + 0.5f * float(m_rowsDone) / float(m_part.height)))
                    m_isStopped = true;
            }
            const std::lock_guard lock(m_mutex);
            add(state);
        });
        return !m_isStopped;
    }

private:
    void read(int y, std::vector<Rgb>& row) const
    {
        const ImageDescriptor& descriptor = m_image.descriptor();
        const std::byte* const pixels = m_image.row(descriptor.height - 1 - (m_part.y + y)).data();
        Pixels::toRgb(descriptor.format,
                      pixels + static_cast<std::size_t>(m_part.x) *
                                   Image::getPixelFormatByteCount(descriptor.format),
                      row.data(), row.size());
    }

    const Image& m_image;
    wxRect m_part;
    const Progress& m_progress;
    std::mutex m_mutex;
    std::atomic<int> m_rowsDone = 0;
    std::atomic<bool> m_isStopped = false;
};

// Tells in which part of a range a value lies, at the cost of a few comparisons instead of a power.
class Bins
{
public:
    Bins(double min, double max, float gamma)
    {
        for (std::size_t i = 1; i < BINS; ++i) {
            const double encoded = min + (max - min) * double(i) / double(BINS);
            m_starts[i - 1] = static_cast<float>(std::copysign(std::pow(std::abs(encoded), gamma), encoded));
        }
    }

    std::size_t of(float value) const
    {
        return static_cast<std::size_t>(std::ranges::upper_bound(m_starts, value) - m_starts.begin());
    }

private:
    std::array<float, BINS - 1> m_starts{}; // of all but the first, in ascending order
};

PictureStatistics summarised(const Gathered& gathered, std::size_t channels, float gamma)
{
    PictureStatistics statistics;
    statistics.nanPixelCount = gathered.nanPixels;
    for (std::size_t i = 0; i < channels; ++i) {
        ChannelStatistics channel;
        channel.nanCount = gathered.nan[i];
        channel.infiniteCount = gathered.infinite[i];
        channel.min = channel.max = channel.mean = std::numeric_limits<double>::quiet_NaN();
        if (gathered.finite[i] > 0) {
            channel.min = double(gathered.min[i]);
            channel.max = double(gathered.max[i]);
            channel.mean = gathered.sum[i] / double(gathered.finite[i]);
            statistics.histogramMin =
                std::min(statistics.histogramMin, double(encodedForScreen(gathered.min[i], gamma)));
            statistics.histogramMax =
                std::max(statistics.histogramMax, double(encodedForScreen(gathered.max[i], gamma)));
        }
        statistics.channels.push_back(channel);
    }
    return statistics;
}

} // namespace

float encodedForScreen(float value, float gamma)
{
    return std::copysign(std::pow(std::abs(value), 1.0f / gamma), value);
}

Optional<PictureStatistics> statisticsOf(const Image& image, const wxRect& part, const Progress& progress)
{
    const auto channels =
        static_cast<std::size_t>(Image::getPixelFormatChannelCount(image.descriptor().format));
    const float gamma = image.descriptor().gamma;
    PartRows rows(image, part, progress);
    Gathered gathered;
    if (!rows.forEach<Gathered>(
            0.0f, [channels](Gathered& some, const Rgb& pixel) { some.add(pixel, channels); },
            [&gathered](const Gathered& some) { gathered.add(some); }))
        return {};
    PictureStatistics statistics = summarised(gathered, channels, gamma);
    statistics.pixelCount = std::int64_t(part.width) * part.height;
    const Bins bins(statistics.histogramMin, statistics.histogramMax, gamma);
    const auto count = [&](Histograms& some, const Rgb& pixel) {
        const Values values = valuesOf(pixel);
        for (std::size_t i = 0; i < channels; ++i) {
            if (std::isfinite(values[i]))
                ++some[i][bins.of(values[i])];
        }
    };
    const auto addUp = [&](const Histograms& some) {
        for (std::size_t i = 0; i < channels; ++i)
            std::ranges::transform(statistics.channels[i].histogram, some[i],
                                   statistics.channels[i].histogram.begin(), std::plus<>());
    };
    if (!rows.forEach<Histograms>(0.5f, count, addUp))
        return {};
    return statistics;
}

} // namespace Nolvex::Viewer
