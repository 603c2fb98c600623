// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/Progress.h"

#include <wx/gdicmn.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// What the values of one channel are like.
struct ChannelStatistics
{
    static constexpr std::size_t BINS = 256;

    // Of the finite values. NaN if there are none.
    double min = 0.0;
    double max = 0.0;
    double mean = 0.0;
    /// How many values are NaN, and how many are infinite.
    std::int64_t nanCount = 0;
    std::int64_t infiniteCount = 0;
    /// How many values lie in each of the equal parts of the histogram's range.
    std::array<std::int64_t, BINS> histogram{};
};

/// What the values of an image are like, channel by channel.
struct PictureStatistics
{
    /// One for each channel of the image.
    Array<ChannelStatistics> channels;
    /// The number of pixels that were looked at, and of those in which a channel is NaN.
    std::int64_t pixelCount = 0;
    std::int64_t nanPixelCount = 0;
    /// The range of the histograms in values encoded for the screen: from 0, or the smallest value below, to
    /// 1, or the largest value above.
    double histogramMin = 0.0;
    double histogramMax = 1.0;
};

/// Returns the value as the screen gets it: to the power of 1 / gamma. Negative values keep their sign.
float encodedForScreen(float value, float gamma);

/// Looks at the pixels of a part of an image, which counts rows from the top and must lie within the image.
/// Returns nullopt if the progress stops the work. Any thread may call the function.
Optional<PictureStatistics> statisticsOf(const Image& image, const wxRect& part, const Progress& progress);

} // namespace Nolvex::Viewer
