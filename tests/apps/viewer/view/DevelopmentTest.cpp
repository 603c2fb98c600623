// SPDX-License-Identifier: MIT
#include "apps/viewer/view/Development.h"

#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/ColourConversions.h"
#include "support/DevelopedPicture.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

using namespace Nolvex;
using Viewer::Channel;
using Viewer::DisplaySettings;

namespace {

Image image(PixelFormat format, std::int32_t width, std::int32_t height, float gamma)
{
    return *Image::create(width, height, format, gamma);
}

// An image with one float pixel.
Image pixel(const Rgb& value, float gamma)
{
    Image result = image(PixelFormat::FLOAT32_RGBA, 1, 1, gamma);
    std::memcpy(result.row(0).data(), &value, sizeof(value));
    return result;
}

wxImage developed(const Image& source, const DisplaySettings& settings)
{
    const ImageDescriptor& size = source.descriptor();
    return Tests::develop(source, settings, wxRect(0, 0, size.width, size.height));
}

RgbBytes shown(const Image& source, const DisplaySettings& settings)
{
    return Tests::pixelAt(developed(source, settings), 0, 0);
}

// The byte of a value that is encoded by the gamma.
int encoded(float value, float gamma)
{
    return static_cast<int>(std::lround(255.0f * std::pow(std::min(value, 1.0f), 1.0f / gamma)));
}

void fill(Image& target)
{
    unsigned state = 1;
    for (std::int32_t y = 0; y < target.descriptor().height; ++y) {
        for (std::byte& byte : target.row(y)) {
            state = state * 1664525u + 1013904223u;
            byte = static_cast<std::byte>(state >> 24);
        }
    }
}

std::size_t countOf(const wxImage& image)
{
    return static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
}

bool hasSameColours(const wxImage& one, const wxImage& other)
{
    return one.GetSize() == other.GetSize() && one.HasAlpha() == other.HasAlpha() &&
           std::equal(one.GetData(), one.GetData() + 3 * countOf(one), other.GetData());
}

bool isSame(const wxImage& one, const wxImage& other)
{
    const std::size_t pixels = countOf(one);
    return hasSameColours(one, other) &&
           (!one.HasAlpha() || std::equal(one.GetAlpha(), one.GetAlpha() + pixels, other.GetAlpha()));
}

} // namespace

TEST(DevelopmentTest, usualSettings_showWhatTheConverterShows)
{
    for (int format = 0; format < PIXEL_FORMAT_COUNT; ++format) {
        for (const float gamma : {1.0f, 2.2f}) {
            Image source = image(static_cast<PixelFormat>(format), 37, 21, gamma);
            fill(source);
            const wxImage converted = BitmapConverter::zephraImageToWxImage(source);
            EXPECT_TRUE(hasSameColours(developed(source, {}), converted))
                << "format " << format << ", gamma " << gamma;
        }
    }
}

TEST(DevelopmentTest, alpha_isNotEncodedByAnyGamma)
{
    for (const float gamma : {1.0f, 1.8f, 2.2f}) {
        const Image source = pixel({0.5f, 0.5f, 0.5f, 0.25f}, gamma);
        EXPECT_EQ(developed(source, {}).GetAlpha(0, 0), 64) << gamma;
        EXPECT_EQ(developed(source, {.gamma = 3.0f}).GetAlpha(0, 0), 64) << gamma;
        EXPECT_EQ(Viewer::developPixel(source, {}, {0, 0}).shown.a, 0.25f) << gamma;
    }
}

TEST(DevelopmentTest, part_isCutFromTheWhole)
{
    for (const DisplaySettings& settings :
         {DisplaySettings{}, DisplaySettings{.exposure = 0.7f}, DisplaySettings{.channel = Channel::BLUE}}) {
        Image source = image(PixelFormat::UINT16_RGBA, 23, 17, 1.8f);
        fill(source);
        const wxRect part(5, 3, 11, 9);
        EXPECT_TRUE(
            isSame(Tests::develop(source, settings, part), developed(source, settings).GetSubImage(part)));
    }
}

TEST(DevelopmentTest, oneStop_doublesTheLight)
{
    const Image source = pixel({0.1f, 0.3f, 0.6f, 1.0f}, 2.2f);
    const RgbBytes brighter = shown(source, {.exposure = 1.0f});
    EXPECT_EQ(brighter.r, encoded(0.2f, 2.2f));
    EXPECT_EQ(brighter.g, encoded(0.6f, 2.2f));
    EXPECT_EQ(brighter.b, 255) << "more light than the screen has is white";
    const RgbBytes darker = shown(source, {.exposure = -1.0f});
    EXPECT_EQ(darker.r, encoded(0.05f, 2.2f));
    EXPECT_EQ(darker.b, encoded(0.3f, 2.2f));
}

TEST(DevelopmentTest, encodedValues_getAsMuchBrighterAsLight)
{
    const float light = 0.2f;
    const RgbBytes ofLight = shown(pixel({light, light, light, 1.0f}, 2.2f), {.exposure = 1.5f});
    const float value = std::pow(light, 1.0f / 2.2f);
    const RgbBytes ofEncoded = shown(pixel({value, value, value, 1.0f}, 1.0f), {.exposure = 1.5f});
    EXPECT_NEAR(ofLight.r, ofEncoded.r, 1);
    EXPECT_GT(ofLight.r, encoded(light, 2.2f));
}

TEST(DevelopmentTest, valuesOfOtherGammas_areEncodedLight)
{
    const float light = 0.2f;
    const Viewer::DisplaySettings srgb{.exposure = 1.5f, .encoding = Viewer::Encoding::SRGB};
    const Viewer::DisplaySettings linear{.exposure = 1.5f, .encoding = Viewer::Encoding::LINEAR};
    const Viewer::DisplaySettings falseColor{.exposure = 1.5f, .falseColor = Viewer::FalseColor::VALUES};
    const Image ofLight = pixel({light, light, light, 1.0f}, 2.2f);
    for (const float gamma : {0.5f, 1.4f, 1.8f, 4.4f}) {
        const float value = std::pow(light, gamma / 2.2f);
        const Image source = pixel({value, value, value, 1.0f}, gamma);
        EXPECT_NEAR(Viewer::developPixel(source, {}, {0, 0}).light.g, light, 1e-6f) << gamma;
        for (const DisplaySettings& settings : {DisplaySettings{.exposure = 1.5f}, srgb, linear, falseColor})
            EXPECT_EQ(shown(source, settings), shown(ofLight, settings)) << gamma;
    }
}

TEST(DevelopmentTest, exposure_leavesTheTransparency)
{
    const wxImage brighter = developed(pixel({0.5f, 0.5f, 0.5f, 0.5f}, 1.0f), {.exposure = 3.0f});
    ASSERT_TRUE(brighter.HasAlpha());
    EXPECT_EQ(brighter.GetAlpha(0, 0), 128);
    EXPECT_EQ(brighter.GetRed(0, 0), 255);
}

TEST(DevelopmentTest, oneChannel_isGreyAndOpaque)
{
    const Image source = pixel({0.2f, 0.4f, 0.6f, 0.8f}, 1.0f);
    const auto expectGrey = [&](Channel channel, int value) {
        const wxImage image = developed(source, {.channel = channel});
        EXPECT_FALSE(image.HasAlpha());
        const auto byte = static_cast<std::uint8_t>(value);
        EXPECT_EQ(Tests::pixelAt(image, 0, 0), (RgbBytes{byte, byte, byte})) << static_cast<int>(channel);
    };
    expectGrey(Channel::RED, 51);
    expectGrey(Channel::GREEN, 102);
    expectGrey(Channel::BLUE, 153);
    expectGrey(Channel::ALPHA, 204);
    expectGrey(Channel::LUMINANCE, 95); // 255 * (0.2126 * 0.2 + 0.7152 * 0.4 + 0.0722 * 0.6) = 94.8
}

TEST(DevelopmentTest, exposure_brightensAChannelButNotAlpha)
{
    const Image source = pixel({0.1f, 0.2f, 0.3f, 0.4f}, 2.2f);
    EXPECT_EQ(shown(source, {.exposure = 1.0f, .channel = Channel::RED}).g, encoded(0.2f, 2.2f));
    EXPECT_EQ(shown(source, {.exposure = 1.0f, .channel = Channel::LUMINANCE}).r,
              encoded(2.0f * (0.2126f * 0.1f + 0.7152f * 0.2f + 0.0722f * 0.3f), 2.2f));
    EXPECT_EQ(shown(source, {.exposure = 1.0f, .channel = Channel::ALPHA}).r, 102) << "alpha is no light";
}

TEST(DevelopmentTest, imageWithoutAlpha_isOpaqueEverywhere)
{
    Image source = image(PixelFormat::UINT8_GREY, 1, 1, 1.0f);
    EXPECT_EQ(shown(source, {.channel = Channel::ALPHA}), (RgbBytes{255, 255, 255}));
    EXPECT_FALSE(developed(source, {.exposure = 1.0f}).HasAlpha());
}

TEST(DevelopmentTest, whatIsNoNumberOrEndless_isBlackOrWhite)
{
    constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    const Image source = pixel({NAN_VALUE, ENDLESS, -3.0f, 1.0f}, 2.2f);
    for (const float exposure : {-20.0f, 20.0f})
        EXPECT_EQ(shown(source, {.exposure = exposure}), (RgbBytes{0, 255, 0}));
    EXPECT_EQ(shown(source, {.channel = Channel::LUMINANCE}), (RgbBytes{0, 0, 0}));
    constexpr float MAX_VALUE = std::numeric_limits<float>::max();
    EXPECT_EQ(shown(pixel({MAX_VALUE, 0.0f, 0.0f, 1.0f}, 2.2f), {.exposure = 20.0f}).r, 255);
}

TEST(DevelopmentTest, pixel_hasTheValuesWhoseBytesAreShown)
{
    for (const float gamma : {1.0f, 1.8f, 2.2f}) {
        Image source = image(PixelFormat::FLOAT16_RGBA, 32, 32, gamma);
        fill(source);
        for (const Channel channel : {Channel::RGB, Channel::BLUE, Channel::ALPHA, Channel::LUMINANCE}) {
            const DisplaySettings settings{0.7f, channel};
            const wxImage expected = developed(source, settings);
            for (int y = 0; y < 32; ++y) {
                for (int x = 0; x < 32; ++x) {
                    const Rgb value = Viewer::developPixel(source, settings, {x, y}).shown;
                    ASSERT_EQ(Wx::toRgbBytes(Wx::toWxColour(value)), Tests::pixelAt(expected, x, y))
                        << x << ", " << y << ", gamma " << gamma;
                    const Rgb alpha{value.a, 0, 0, 1};
                    ASSERT_EQ(Wx::toRgbBytes(Wx::toWxColour(alpha)).r,
                              expected.HasAlpha() ? expected.GetAlpha(x, y) : 255);
                }
            }
        }
    }
}

TEST(DevelopmentTest, pixel_hasTheLightOfTheImageWhateverTheSettings)
{
    const DisplaySettings settings{2.0f, Channel::GREEN};
    const Rgb light{0.25f, -3.0f, 17.0f, 0.5f};
    EXPECT_EQ(Viewer::developPixel(pixel(light, 2.2f), settings, {0, 0}).light, light);
    const Viewer::PixelValues encodedValues =
        Viewer::developPixel(pixel({0.5f, -0.5f, 1, 0.5f}, 1), {}, {0, 0});
    const float half = std::pow(0.5f, 2.2f);
    EXPECT_EQ(encodedValues.light, (Rgb{half, -half, 1, 0.5f}));
    EXPECT_EQ(encodedValues.shown, (Rgb{0.5f, -0.5f, 1, 0.5f}));
}

TEST(DevelopmentTest, pixel_keepsTheSignAndTheSizeOfItsValues)
{
    const Rgb value = Viewer::developPixel(pixel({-0.25f, 4.0f, 0.0f, 1.0f}, 2.0f), {}, {0, 0}).shown;
    EXPECT_EQ(value, (Rgb{-0.5f, 2.0f, 0.0f, 1.0f}));
    const float inf = std::numeric_limits<float>::infinity();
    const Viewer::PixelValues bad =
        Viewer::developPixel(pixel({inf, -inf, std::nanf(""), 1}, 2.2f), {}, {0, 0});
    EXPECT_EQ(bad.shown.r, inf);
    EXPECT_EQ(bad.shown.g, -inf);
    EXPECT_TRUE(std::isnan(bad.shown.b));
}

TEST(DevelopmentTest, gamma_raisesTheEncodedValues)
{
    const Image source = pixel({0.25f, 0.5f, 1.0f, 1.0f}, 1.0f);
    EXPECT_EQ(shown(source, {.gamma = 2.0f}), (RgbBytes{128, 180, 255}));
    EXPECT_EQ(shown(source, {.gamma = 0.5f}), (RgbBytes{16, 64, 255}));
    const Image light = pixel({0.25f, 0.5f, 1.0f, 1.0f}, 2.2f);
    EXPECT_EQ(shown(light, {.gamma = 2.0f}).r, encoded(0.25f, 4.4f));
    EXPECT_EQ(shown(light, {.channel = Channel::ALPHA, .gamma = 2.0f}).r, 255);
}

TEST(DevelopmentTest, srgb_encodesLightAndLeavesEncodedValues)
{
    const DisplaySettings settings{.encoding = Viewer::Encoding::SRGB};
    EXPECT_EQ(shown(pixel({0.18f, 0.002f, 1.0f, 1.0f}, 2.2f), settings), (RgbBytes{118, 7, 255}));
    EXPECT_EQ(shown(pixel({0.2f, 0.4f, 0.6f, 1.0f}, 1.0f), settings), (RgbBytes{51, 102, 153}));
}

TEST(DevelopmentTest, linear_showsTheLight)
{
    const DisplaySettings settings{.encoding = Viewer::Encoding::LINEAR};
    EXPECT_EQ(shown(pixel({0.2f, 0.4f, 0.6f, 1.0f}, 2.2f), settings), (RgbBytes{51, 102, 153}));
    EXPECT_EQ(shown(pixel({0.5f, 1.0f, 0.0f, 1.0f}, 1.0f), settings).r,
              static_cast<int>(std::lround(255.0f * std::pow(0.5f, 2.2f))));
}

TEST(DevelopmentTest, falseColor_standsForTheLight)
{
    const DisplaySettings settings{.falseColor = Viewer::FalseColor::VALUES};
    const auto expectColor = [&](const Rgb& color, const RgbBytes& bytes) {
        EXPECT_EQ(Wx::toRgbBytes(Wx::toWxColour(color)), bytes);
    };
    expectColor(Viewer::ColorMap::colorAt(0.5f), shown(pixel({0.5f, 0.5f, 0.5f, 0.1f}, 2.2f), settings));
    const float half = std::pow(0.5f, 1.0f / 2.2f);
    expectColor(Viewer::ColorMap::colorAt(0.5f), shown(pixel({half, half, half, 1.0f}, 1.0f), settings));
    DisplaySettings brighter = settings;
    brighter.exposure = 1.0f;
    expectColor(Viewer::ColorMap::colorAt(0.5f), shown(pixel({0.25f, 0.25f, 0.25f, 1.0f}, 2.2f), brighter));
    DisplaySettings red = settings;
    red.channel = Channel::RED;
    expectColor(Viewer::ColorMap::colorAt(1.0f), shown(pixel({1.0f, 0.0f, 0.0f, 1.0f}, 2.2f), red));
    expectColor(Viewer::ColorMap::nanColor(),
                shown(pixel({std::nanf(""), 0.0f, 0.0f, 1.0f}, 2.2f), settings));
}

TEST(DevelopmentTest, falseColor_isOpaque)
{
    const Image source = pixel({0.5f, 0.5f, 0.5f, 0.5f}, 2.2f);
    EXPECT_FALSE(developed(source, {.falseColor = Viewer::FalseColor::STOPS}).HasAlpha());
}

TEST(DevelopmentTest, pixel_hasTheValuesWhoseBytesAreShownInEveryEncoding)
{
    for (const Viewer::Encoding encoding :
         {Viewer::Encoding::GAMMA, Viewer::Encoding::SRGB, Viewer::Encoding::LINEAR}) {
        for (const auto falseColor : {Viewer::FalseColor::OFF, Viewer::FalseColor::STOPS}) {
            Image source = image(PixelFormat::FLOAT16_RGBA, 32, 32, 2.2f);
            fill(source);
            const DisplaySettings settings{.gamma = 1.3f, .encoding = encoding, .falseColor = falseColor};
            const wxImage expected = developed(source, settings);
            for (int y = 0; y < 32; ++y) {
                for (int x = 0; x < 32; ++x) {
                    const Rgb value = Viewer::developPixel(source, settings, {x, y}).shown;
                    ASSERT_EQ(Wx::toRgbBytes(Wx::toWxColour(value)), Tests::pixelAt(expected, x, y))
                        << x << ", " << y;
                }
            }
        }
    }
}
