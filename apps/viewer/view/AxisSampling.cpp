// SPDX-License-Identifier: MIT
#include "apps/viewer/view/AxisSampling.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Nolvex::Viewer {

namespace {

int ceiled(double value)
{
    return static_cast<int>(std::ceil(value));
}

// Edges of pixels that ought to meet do so after this, though they were computed with floats.
double aligned(double place)
{
    constexpr double PARTS = 1 << 20;
    return std::round(place * PARTS) / PARTS;
}

Sample average(double begin, double end, int size)
{
    const double from = std::clamp(aligned(begin), 0.0, static_cast<double>(size));
    const double to = std::clamp(aligned(end), 0.0, static_cast<double>(size));
    Sample sample;
    sample.first = std::min(static_cast<int>(from), size - 1);
    sample.count = std::clamp(ceiled(to) - sample.first, 1, size - sample.first);
    if (sample.count == 1)
        return sample;
    const double length = to - from;
    sample.weight = static_cast<float>(1.0 / length);
    sample.firstWeight = static_cast<float>((sample.first + 1 - from) / length);
    sample.lastWeight = static_cast<float>((to - (sample.first + sample.count - 1)) / length);
    return sample;
}

} // namespace

AxisSampling::AxisSampling(const Layout& layout)
{
    // A pixel of the view belongs to the picture if its middle lies over the picture.
    const int begin = ceiled(aligned(layout.origin - 0.5));
    const int end = std::max(ceiled(aligned(layout.origin + layout.size * layout.scale - 0.5)), begin + 1);
    m_first = std::max(begin, layout.viewFirst);
    m_samples.resize(static_cast<std::size_t>(std::max(std::min(end, layout.viewEnd) - m_first, 0)));
}

AxisSampling AxisSampling::picked(const Layout& layout)
{
    AxisSampling sampling(layout);
    for (int i = 0; i < sampling.count(); ++i) {
        const double place = aligned((sampling.m_first + i + 0.5 - layout.origin) / layout.scale);
        sampling.m_samples[static_cast<std::size_t>(i)].first =
            static_cast<int>(std::clamp(std::floor(place), 0.0, layout.size - 1.0));
    }
    return sampling;
}

AxisSampling AxisSampling::averaged(const Layout& layout, int shift)
{
    AxisSampling sampling(layout);
    const double scale = std::ldexp(layout.scale, shift);
    const int size = ((layout.size - 1) >> shift) + 1;
    for (int i = 0; i < sampling.count(); ++i) {
        const double begin = (sampling.m_first + i - layout.origin) / scale;
        const double end = (sampling.m_first + i + 1 - layout.origin) / scale;
        sampling.m_samples[static_cast<std::size_t>(i)] = average(begin, end, size);
    }
    return sampling;
}

int AxisSampling::maxCount() const
{
    return std::ranges::max(m_samples, {}, &Sample::count).count;
}

} // namespace Nolvex::Viewer
