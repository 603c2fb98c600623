// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/PictureDifference.h"

#include "apps/viewer/Light.h"
#include "support/FloatImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

using namespace Nolvex;
using Viewer::AlphaKind;
using Viewer::DifferenceMeasure;
using Viewer::Picture;
using Viewer::SharedPicture;

namespace {

// A picture of grey floats, its top row first.
SharedPicture floats(Pixel size, const Array<float>& values, float gamma = Viewer::GAMMA_OF_LIGHT,
                     Pixel origin = {0, 0})
{
    Expected<Image, String> image = Image::create(size.x, size.y, PixelFormat::FLOAT32_GREY, gamma);
    for (int y = 0; y < size.y; ++y)
        std::memcpy(image->row(size.y - 1 - y).data(), values.data() + std::ptrdiff_t(y) * size.x,
                    static_cast<std::size_t>(size.x) * sizeof(float));
    Viewer::ReadImage content{std::move(*image)};
    content.origin = origin;
    content.frameSize = Pixel{10, 10};
    return std::make_shared<const Picture>(L"p", std::move(content), nullptr, 0);
}

Viewer::PictureDifference between(const SharedPicture& a, const SharedPicture& b,
                                  DifferenceMeasure measure = DifferenceMeasure::SIGNED)
{
    Expected<Viewer::PictureDifference, String> difference = differenceOf(*a, *b, measure, {});
    EXPECT_TRUE(difference.hasValue());
    return *difference;
}

// Row 0 is the top row.
float valueAt(const Viewer::PictureDifference& difference, int x, int y)
{
    const Image& image = difference.picture->image();
    return image.getRgba(x, image.descriptor().height - 1 - y).g;
}

} // namespace

TEST(PictureDifferenceTest, measures_areWhatTheySay)
{
    const SharedPicture a = floats({2, 1}, {0.75f, 0.25f});
    const SharedPicture b = floats({2, 1}, {0.25f, 0.75f});
    EXPECT_EQ(valueAt(between(a, b), 0, 0), 0.5f);
    EXPECT_EQ(valueAt(between(a, b), 1, 0), -0.5f);
    EXPECT_EQ(valueAt(between(a, b, DifferenceMeasure::MAGNITUDE), 1, 0), 0.5f);
    EXPECT_EQ(valueAt(between(a, b, DifferenceMeasure::SQUARED), 1, 0), 0.25f);
    EXPECT_FLOAT_EQ(valueAt(between(a, b, DifferenceMeasure::PROPORTION), 0, 0), 0.5f / 0.26f);
    EXPECT_FLOAT_EQ(valueAt(between(a, b, DifferenceMeasure::PROPORTION), 1, 0), 0.5f / 0.76f);
}

TEST(PictureDifferenceTest, numbers_areThoseOfAllPixels)
{
    const Viewer::PictureDifference difference =
        between(floats({2, 2}, {0.5f, 0, 0, 0}), floats({2, 2}, {0, 0, 0, 0}), DifferenceMeasure::MAGNITUDE);
    EXPECT_DOUBLE_EQ(difference.mean, 0.125);
    EXPECT_DOUBLE_EQ(difference.psnr, 10.0 * std::log10(16.0));
    EXPECT_EQ(difference.notFiniteCount, 0);
}

TEST(PictureDifferenceTest, samePicture_hasNoDifference)
{
    const SharedPicture a = floats({2, 1}, {0.75f, 1e30f});
    const Viewer::PictureDifference difference = between(a, a, DifferenceMeasure::PROPORTION);
    EXPECT_EQ(difference.mean, 0.0);
    EXPECT_EQ(difference.psnr, std::numeric_limits<double>::infinity());
}

TEST(PictureDifferenceTest, infinitePixels_areCountedAndLeftOut)
{
    constexpr float INF = std::numeric_limits<float>::infinity();
    const SharedPicture a = floats({3, 1}, {1.0f, INF, std::nanf("")});
    const SharedPicture b = floats({3, 1}, {0.5f, INF, 0.0f});
    const Viewer::PictureDifference difference = between(a, b);
    EXPECT_EQ(difference.notFiniteCount, 2);
    EXPECT_DOUBLE_EQ(difference.mean, 0.5);
    EXPECT_TRUE(std::isnan(valueAt(difference, 2, 0)));
    const Viewer::PictureDifference nothing =
        between(floats({1, 1}, {std::nanf("")}), floats({1, 1}, {0.0f}));
    EXPECT_TRUE(std::isnan(nothing.mean));
    EXPECT_TRUE(std::isnan(nothing.psnr));
}

TEST(PictureDifferenceTest, pictures_areComparedWhereTheyLieInTheFrame)
{
    const SharedPicture a = floats({3, 2}, {1, 2, 3, 4, 5, 6}, Viewer::GAMMA_OF_LIGHT, {-1, 0});
    const SharedPicture b = floats({2, 3}, {0, 0, 5, 6, 0, 0}, Viewer::GAMMA_OF_LIGHT, {0, 0});
    const Viewer::PictureDifference difference = between(a, b);
    EXPECT_EQ(difference.picture->origin(), (Pixel{0, 0}));
    EXPECT_EQ(difference.picture->size(), (Pixel{2, 2}));
    EXPECT_EQ(difference.picture->frameSize(), (Pixel{10, 10}));
    EXPECT_EQ(valueAt(difference, 0, 0), 2.0f);
    EXPECT_EQ(valueAt(difference, 1, 0), 3.0f);
    EXPECT_EQ(valueAt(difference, 0, 1), 0.0f);
    EXPECT_EQ(valueAt(difference, 1, 1), 0.0f);
}

TEST(PictureDifferenceTest, picturesApart_cannotBeCompared)
{
    const SharedPicture a = floats({1, 1}, {1}, Viewer::GAMMA_OF_LIGHT, {5, 5});
    const auto difference = differenceOf(*a, *floats({2, 2}, {1, 1, 1, 1}), DifferenceMeasure::SIGNED, {});
    ASSERT_FALSE(difference.hasValue());
    EXPECT_EQ(difference.error(), String(L"The picture and the reference have no pixel in common."));
}

TEST(PictureDifferenceTest, encodedValues_areComparedWithLightAsLight)
{
    const SharedPicture encoded = floats({2, 1}, {0.5f, -0.5f}, Viewer::GAMMA_OF_ENCODED);
    const SharedPicture light = floats({2, 1}, {0.0f, 0.0f});
    const Viewer::PictureDifference mixed = between(encoded, light);
    EXPECT_FLOAT_EQ(valueAt(mixed, 0, 0), std::pow(0.5f, 2.2f));
    EXPECT_FLOAT_EQ(valueAt(mixed, 1, 0), -std::pow(0.5f, 2.2f));
    EXPECT_EQ(mixed.picture->image().descriptor().gamma, Viewer::GAMMA_OF_LIGHT);
    const Viewer::PictureDifference same =
        between(encoded, floats({2, 1}, {0.25f, 0.0f}, Viewer::GAMMA_OF_ENCODED));
    EXPECT_EQ(valueAt(same, 0, 0), 0.25f);
    EXPECT_EQ(same.picture->image().descriptor().gamma, Viewer::GAMMA_OF_ENCODED);
}

TEST(PictureDifferenceTest, valuesOfOtherGammas_areComparedAsLight)
{
    const SharedPicture a = floats({1, 1}, {0.5f}, 1.8f);
    const SharedPicture b = floats({1, 1}, {0.5f}, 0.9f);
    EXPECT_FLOAT_EQ(valueAt(between(a, b), 0, 0), std::pow(0.5f, 2.2f / 1.8f) - std::pow(0.5f, 2.2f / 0.9f));
}

TEST(PictureDifferenceTest, picturesOfBothKindsOfAlpha_areComparedMultiplied)
{
    const auto pictureOf = [](const Rgb& pixel, float gamma, AlphaKind kind) {
        return std::make_shared<const Picture>(L"p", Tests::rowOfFloats({pixel}, gamma), kind);
    };
    const SharedPicture straight = pictureOf({0.5f, 1.0f, 0.25f, 0.5f}, 2.2f, AlphaKind::STRAIGHT);
    const SharedPicture same = pictureOf({0.25f, 0.5f, 0.125f, 0.5f}, 2.2f, AlphaKind::ASSOCIATED);
    EXPECT_EQ(between(straight, same).psnr, std::numeric_limits<double>::infinity());
    EXPECT_EQ(between(same, straight).psnr, std::numeric_limits<double>::infinity());

    const float half = std::pow(0.5f, 1.0f / 2.2f);
    const SharedPicture encoded = pictureOf({half, 1.0f, 0.0f, 0.5f}, 1.0f, AlphaKind::STRAIGHT);
    EXPECT_NEAR(valueAt(between(straight, encoded), 0, 0), 0.0f, 1e-6f) << "the same kind: not multiplied";
    EXPECT_NEAR(between(encoded, same).picture->image().getRgba(0, 0).r, 0.0f, 1e-6f);

    const SharedPicture multiplied = pictureOf({0.5f * half, 0.5f, 0.0f, 0.5f}, 1.0f, AlphaKind::ASSOCIATED);
    EXPECT_NEAR(between(multiplied, same).picture->image().getRgba(0, 0).r, 0.0f, 1e-6f);
    EXPECT_NEAR(between(multiplied, straight).picture->image().getRgba(0, 0).g, 0.0f, 1e-6f);

    const SharedPicture opaque =
        std::make_shared<const Picture>(L"p", *Image::create(1, 1, PixelFormat::FLOAT32_RGB, 2.2f));
    EXPECT_EQ(valueAt(between(straight, opaque), 0, 0), 1.0f) << "without alpha there is no other kind";
}

TEST(PictureDifferenceTest, manyRows_areAllCompared)
{
    constexpr int ROWS = 1000;
    const Array<float> ones(ROWS, 1.0f);
    Array<float> others = ones;
    others.back() = 0.0f;
    float last = 0.0f;
    const auto difference = differenceOf(*floats({1, ROWS}, ones), *floats({1, ROWS}, others),
                                         DifferenceMeasure::SIGNED, [&last](float share) {
                                             EXPECT_GE(share, last);
                                             last = share;
                                             return true;
                                         });
    ASSERT_TRUE(difference.hasValue());
    EXPECT_DOUBLE_EQ(difference->mean, 1.0 / ROWS);
    EXPECT_EQ(valueAt(*difference, 0, ROWS - 1), 1.0f);
    EXPECT_GT(last, 0.2f);
    EXPECT_FALSE(differenceOf(*floats({1, ROWS}, ones), *floats({1, ROWS}, others), DifferenceMeasure::SIGNED,
                              [](float) { return false; })
                     .hasValue());
}
