// SPDX-License-Identifier: MIT
#include "apps/viewer/view/AxisSampling.h"

#include <gtest/gtest.h>

#include <vector>

using Nolvex::Viewer::AxisSampling;
using Nolvex::Viewer::Sample;
using Layout = AxisSampling::Layout;

namespace {

std::vector<int> firstsOf(const AxisSampling& sampling)
{
    std::vector<int> firsts;
    for (int i = 0; i < sampling.count(); ++i)
        firsts.push_back(sampling.sample(i).first);
    return firsts;
}

} // namespace

TEST(AxisSamplingTest, picked_repeatsEnlargedPixels)
{
    const AxisSampling sampling = AxisSampling::picked({3, 2.0, 5.0, 0, 100});
    EXPECT_EQ(sampling.first(), 5);
    EXPECT_EQ(firstsOf(sampling), (std::vector<int>{0, 0, 1, 1, 2, 2}));
}

TEST(AxisSamplingTest, picked_takesThePixelsAtTheMiddles)
{
    const AxisSampling sampling = AxisSampling::picked({12, 0.25, 0.0, 0, 100});
    EXPECT_EQ(firstsOf(sampling), (std::vector<int>{2, 6, 10}));
}

TEST(AxisSamplingTest, partOfTheView_isCutFromTheWhole)
{
    const AxisSampling sampling = AxisSampling::picked({100, 3.0, -7.0, 2, 8});
    EXPECT_EQ(sampling.first(), 2);
    EXPECT_EQ(firstsOf(sampling), (std::vector<int>{3, 3, 3, 4, 4, 4}));
    EXPECT_EQ(sampling.sourceFirst(), 3);
    EXPECT_EQ(sampling.sourceEnd(), 5);
    EXPECT_EQ(AxisSampling::picked({100, 3.0, 500.0, 2, 8}).count(), 0);
    EXPECT_EQ(AxisSampling::picked({100, 3.0, -500.0, 2, 8}).count(), 0);
}

TEST(AxisSamplingTest, averagesAtAPowerOfTwo_areSinglePixelsOfTheCopy)
{
    const AxisSampling sampling = AxisSampling::averaged({16, 0.25, 0.0, 0, 100}, 2);
    EXPECT_EQ(firstsOf(sampling), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(sampling.maxCount(), 1);
}

TEST(AxisSamplingTest, averages_weighPixelsByTheirPart)
{
    const AxisSampling sampling = AxisSampling::averaged({9, 2.0 / 3.0, 0.0, 0, 100}, 0);
    ASSERT_EQ(sampling.count(), 6);
    const Sample& first = sampling.sample(0); // from 0 to 1.5
    EXPECT_EQ(first.first, 0);
    ASSERT_EQ(first.count, 2);
    EXPECT_FLOAT_EQ(first.weightOf(0), 1.0f / 1.5f);
    EXPECT_FLOAT_EQ(first.weightOf(1), 0.5f / 1.5f);
    const Sample& second = sampling.sample(1); // from 1.5 to 3
    EXPECT_EQ(second.first, 1);
    ASSERT_EQ(second.count, 2);
    EXPECT_FLOAT_EQ(second.weightOf(0), 0.5f / 1.5f);
    EXPECT_FLOAT_EQ(second.weightOf(1), 1.0f / 1.5f);
}

TEST(AxisSamplingTest, weights_addUpToOneAndStayInside)
{
    for (const double scale : {0.013, 0.2, 0.37, 0.51, 0.77, 0.999}) {
        for (const int size : {1, 2, 7, 1000}) {
            for (const double origin : {0.0, -3.25, 17.6}) {
                const AxisSampling sampling = AxisSampling::averaged({size, scale, origin, -2000, 2000}, 0);
                ASSERT_GE(sampling.count(), 1);
                for (int i = 0; i < sampling.count(); ++i) {
                    const Sample& sample = sampling.sample(i);
                    ASSERT_GE(sample.first, 0);
                    ASSERT_LE(sample.first + sample.count, size);
                    float sum = 0.0f;
                    for (int k = 0; k < sample.count; ++k)
                        sum += sample.count == 1 ? 1.0f : sample.weightOf(k);
                    ASSERT_NEAR(sum, 1.0f, 1e-4f) << size << " at " << scale;
                }
            }
        }
    }
}

TEST(AxisSamplingTest, pictureThinnerThanAPixel_takesOne)
{
    for (const bool averages : {false, true}) {
        const Layout layout{1, 0.02, 40.3, 0, 100};
        const AxisSampling sampling =
            averages ? AxisSampling::averaged(layout, 0) : AxisSampling::picked(layout);
        ASSERT_EQ(sampling.count(), 1);
        EXPECT_EQ(sampling.first(), 40);
        EXPECT_EQ(sampling.sample(0).first, 0);
    }
}
