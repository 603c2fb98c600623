// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/PictureStatistics.h"

#include "NolvexLib/Pixel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

using namespace Nolvex;
using Viewer::ChannelStatistics;
using Viewer::PictureStatistics;
using Viewer::statisticsOf;

namespace {

constexpr float INF = std::numeric_limits<float>::infinity();
const float NOT_A_NUMBER = std::nanf("");

// Each row stands below the one before.
Image floats(Pixel size, PixelFormat format, const Array<float>& values, float gamma = 1.0f)
{
    Expected<Image, String> image = Image::create(size.x, size.y, format, gamma);
    for (int y = 0; y < size.y; ++y)
        std::memcpy(image->row(size.y - 1 - y).data(),
                    reinterpret_cast<const std::byte*>(values.data()) +
                        static_cast<std::size_t>(y) * image->rowBytes(),
                    image->rowBytes());
    return std::move(*image);
}

PictureStatistics all(const Image& image)
{
    const wxRect whole(0, 0, image.descriptor().width, image.descriptor().height);
    const Optional<PictureStatistics> statistics = statisticsOf(image, whole, {});
    EXPECT_TRUE(statistics.has_value());
    return *statistics;
}

std::int64_t countedIn(const ChannelStatistics& channel)
{
    return std::accumulate(channel.histogram.begin(), channel.histogram.end(), std::int64_t(0));
}

} // namespace

TEST(PictureStatisticsTest, channels_areMeasuredOneByOne)
{
    const PictureStatistics statistics =
        all(floats({2, 1}, PixelFormat::FLOAT32_RGB, {0.0f, 0.5f, -1.0f, 1.0f, 0.5f, 3.0f}));
    ASSERT_EQ(statistics.channels.size(), 3U);
    EXPECT_EQ(statistics.channels[0].min, 0.0);
    EXPECT_EQ(statistics.channels[0].max, 1.0);
    EXPECT_EQ(statistics.channels[0].mean, 0.5);
    EXPECT_EQ(statistics.channels[1].min, 0.5);
    EXPECT_EQ(statistics.channels[2].min, -1.0);
    EXPECT_EQ(statistics.channels[2].mean, 1.0);
    EXPECT_EQ(statistics.pixelCount, 2);
    EXPECT_EQ(statistics.histogramMin, -1.0);
    EXPECT_EQ(statistics.histogramMax, 3.0);
}

TEST(PictureStatisticsTest, histogram_countsEncodedValues)
{
    const PictureStatistics statistics =
        all(floats({4, 1}, PixelFormat::FLOAT32_GREY, {0.0f, 1.0f, 0.2176376f, 1.0f}, 2.2f));
    const auto& histogram = statistics.channels[0].histogram;
    EXPECT_EQ(histogram.front(), 1);
    EXPECT_EQ(histogram.back(), 2);
    EXPECT_EQ(histogram[127] + histogram[128], 1) << "the light of 0.2176 is shown as 0.5";
    EXPECT_EQ(statistics.histogramMin, 0.0);
    EXPECT_EQ(statistics.histogramMax, 1.0);
}

TEST(PictureStatisticsTest, valuesThatAreNotFinite_areCountedAndLeftOut)
{
    const PictureStatistics statistics =
        all(floats({5, 1}, PixelFormat::FLOAT32_GREY, {NOT_A_NUMBER, INF, -INF, 2.0f, 4.0f}));
    const ChannelStatistics& grey = statistics.channels[0];
    EXPECT_EQ(grey.nanCount, 1);
    EXPECT_EQ(grey.infiniteCount, 2);
    EXPECT_EQ(grey.min, 2.0);
    EXPECT_EQ(grey.max, 4.0);
    EXPECT_EQ(grey.mean, 3.0);
    EXPECT_EQ(countedIn(grey), 2);
    EXPECT_EQ(statistics.nanPixelCount, 1);
}

TEST(PictureStatisticsTest, nothingFinite_hasNoMean)
{
    const PictureStatistics statistics = all(floats({2, 1}, PixelFormat::FLOAT32_GREY, {NOT_A_NUMBER, INF}));
    EXPECT_TRUE(std::isnan(statistics.channels[0].mean));
    EXPECT_TRUE(std::isnan(statistics.channels[0].min));
    EXPECT_EQ(statistics.histogramMax, 1.0);
}

TEST(PictureStatisticsTest, pixelWithSeveralNans_isOnePixel)
{
    const PictureStatistics statistics =
        all(floats({2, 1}, PixelFormat::FLOAT32_RGB, {NOT_A_NUMBER, NOT_A_NUMBER, 0, 0, 0, 0}));
    EXPECT_EQ(statistics.nanPixelCount, 1);
    EXPECT_EQ(statistics.channels[1].nanCount, 1);
}

TEST(PictureStatisticsTest, part_countsRowsFromTheTop)
{
    const Image image = floats({2, 3}, PixelFormat::FLOAT32_GREY, {1, 2, 3, 4, 5, 6});
    const Optional<PictureStatistics> statistics = statisticsOf(image, {1, 0, 1, 2}, {});
    EXPECT_EQ(statistics->channels[0].min, 2.0);
    EXPECT_EQ(statistics->channels[0].max, 4.0);
    EXPECT_EQ(statistics->pixelCount, 2);
}

TEST(PictureStatisticsTest, hugeValues_haveARange)
{
    constexpr float LARGEST = std::numeric_limits<float>::max();
    const PictureStatistics statistics =
        all(floats({2, 1}, PixelFormat::FLOAT32_GREY, {-LARGEST, LARGEST}, 2.2f));
    EXPECT_EQ(statistics.channels[0].max, double(LARGEST));
    EXPECT_EQ(statistics.channels[0].mean, 0.0);
    EXPECT_EQ(statistics.channels[0].histogram.front(), 1);
    EXPECT_EQ(statistics.channels[0].histogram.back(), 1);
}

TEST(PictureStatisticsTest, manyRows_areAllCountedOnce)
{
    constexpr int ROWS = 1000;
    Array<float> values(ROWS);
    std::iota(values.begin(), values.end(), 0.0f);
    const Image image = floats({1, ROWS}, PixelFormat::FLOAT32_GREY, values);
    float last = 0.0f;
    const Optional<PictureStatistics> statistics = statisticsOf(image, {0, 0, 1, ROWS}, [&last](float share) {
        EXPECT_GE(share, last);
        last = share;
        return true;
    });
    ASSERT_TRUE(statistics.has_value());
    EXPECT_EQ(statistics->channels[0].mean, (ROWS - 1) / 2.0);
    EXPECT_EQ(countedIn(statistics->channels[0]), ROWS);
    EXPECT_GT(last, 0.6f);
    EXPECT_FALSE(statisticsOf(image, {0, 0, 1, ROWS}, [](float) { return false; }).has_value());
}
