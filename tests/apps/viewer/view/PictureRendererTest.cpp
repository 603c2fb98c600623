// SPDX-License-Identifier: MIT
#include "apps/viewer/view/PictureRenderer.h"

#include "apps/viewer/platform/PixelCanvas.h"
#include "apps/viewer/view/Development.h"
#include "apps/viewer/view/Pyramid.h"
#include "support/DevelopedPicture.h"
#include "support/Screen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

using namespace Nolvex;
using Tests::develop;
using Viewer::AlphaKind;
using Viewer::Backdrop;
using Viewer::DisplaySettings;
using Viewer::drawImage;
using Viewer::fillWith;
using Viewer::Platform::PixelCanvas;

namespace {

constexpr RgbBytes SURROUND{10, 20, 30};
constexpr RgbBytes UNTOUCHED{1, 2, 3};

RgbBytes at(const PixelCanvas& canvas, int x, int y)
{
    const std::uint32_t pixel = canvas.row(y)[x];
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

std::unique_ptr<PixelCanvas> canvasOf(int width, int height)
{
    auto canvas = std::make_unique<PixelCanvas>(wxSize(width, height));
    EXPECT_TRUE(canvas->isOk());
    fillWith(UNTOUCHED, wxRect(0, 0, width, height), *canvas);
    return canvas;
}

Image random(PixelFormat format, int width, int height, float gamma)
{
    Image image = *Image::create(width, height, format, gamma);
    unsigned state = 1;
    for (int y = 0; y < height; ++y) {
        for (std::byte& byte : image.row(y)) {
            state = state * 1664525u + 1013904223u;
            byte = static_cast<std::byte>(state >> 24);
        }
    }
    return image;
}

Image uniform(const Rgb& value, int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::FLOAT32_RGBA, 1.0f);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            std::memcpy(image.row(y).data() + sizeof(Rgb) * static_cast<std::size_t>(x), &value,
                        sizeof(value));
    }
    return image;
}

// Columns and rows of one pixel in black and white, which are grey on average.
Image stripes(int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::UINT8_GREY, 1.0f);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.row(y)[static_cast<std::size_t>(x)] = std::byte((x + y) % 2 == 0 ? 255 : 0);
    }
    return image;
}

RgbBytes blended(const wxImage& front, int x, int y, const RgbBytes& back)
{
    const int alpha = front.HasAlpha() ? front.GetAlpha(x, y) : 255;
    const auto mix = [&](int one, int other) {
        return static_cast<std::uint8_t>((one * alpha + other * (255 - alpha) + 127) / 255);
    };
    return {mix(front.GetRed(x, y), back.r), mix(front.GetGreen(x, y), back.g),
            mix(front.GetBlue(x, y), back.b)};
}

} // namespace

TEST(PictureRendererTest, atOneToOne_showsWhatIsDeveloped)
{
    for (const PixelFormat format : {PixelFormat::UINT8_RGB, PixelFormat::UINT16_GREY,
                                     PixelFormat::FLOAT32_RGB, PixelFormat::FLOAT16_RGB}) {
        for (const float gamma : {1.0f, 2.2f}) {
            const Image image = random(format, 67, 300, gamma); // high enough for several threads
            const DisplaySettings settings{.exposure = 0.5f};
            const auto canvas = canvasOf(100, 310);
            drawImage({image, nullptr, settings, 1.0, {20.0, 5.0}}, {SURROUND}, wxRect(0, 0, 100, 310),
                      *canvas);
            const wxImage expected = develop(image, settings, wxRect(0, 0, 67, 300));
            for (int y = 0; y < 300; ++y) {
                for (int x = 0; x < 67; ++x)
                    ASSERT_EQ(at(*canvas, 20 + x, 5 + y), blended(expected, x, y, SURROUND))
                        << x << ", " << y;
            }
            EXPECT_EQ(at(*canvas, 19, 5), UNTOUCHED);
            EXPECT_EQ(at(*canvas, 87, 5), UNTOUCHED);
            EXPECT_EQ(at(*canvas, 20, 4), UNTOUCHED);
            EXPECT_EQ(at(*canvas, 20, 305), UNTOUCHED);
        }
    }
}

TEST(PictureRendererTest, enlargedPixels_areSquaresWithSharpEdges)
{
    for (const PixelFormat format : {PixelFormat::UINT8_RGB, PixelFormat::UINT8_RGBA}) {
        const Image image = random(format, 9, 7, 1.0f);
        const wxImage expected = develop(image, {}, wxRect(0, 0, 9, 7));
        for (const double scale : {2.0, 3.0, 3.4, 17.0, 100.0}) {
            const auto canvas = canvasOf(120, 100);
            const wxRealPoint origin(-30.0, -11.0);
            drawImage({image, nullptr, {}, scale, origin}, {SURROUND}, wxRect(0, 0, 120, 100), *canvas);
            for (int y = 0; y < 100; ++y) {
                for (int x = 0; x < 120; ++x) {
                    const int column = static_cast<int>(std::floor((x + 0.5 - origin.x) / scale));
                    const int row = static_cast<int>(std::floor((y + 0.5 - origin.y) / scale));
                    const bool isInside = column < 9 && row < 7;
                    ASSERT_EQ(at(*canvas, x, y),
                              isInside ? blended(expected, column, row, SURROUND) : UNTOUCHED)
                        << x << ", " << y << " at " << scale;
                }
            }
        }
    }
}

TEST(PictureRendererTest, reducedPixels_areAverages)
{
    const Image image = stripes(640, 480);
    const Viewer::Pyramid pyramid(image);
    for (const double scale : {0.5, 0.25, 1.0 / 32.0}) {
        const auto canvas = canvasOf(320, 240);
        drawImage({image, &pyramid, {}, scale, {0.0, 0.0}}, {SURROUND}, wxRect(0, 0, 320, 240), *canvas);
        const int width = static_cast<int>(640 * scale);
        const int height = static_cast<int>(480 * scale);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                ASSERT_EQ(at(*canvas, x, y), (RgbBytes{128, 128, 128})) << x << ", " << y << " at " << scale;
        }
        EXPECT_EQ(at(*canvas, width, 0), width < 320 ? UNTOUCHED : at(*canvas, 319, 0));
    }
}

TEST(PictureRendererTest, reducedPicture_doesNotSparkle)
{
    const Image image = stripes(640, 480);
    const Viewer::Pyramid pyramid(image);
    for (const double scale : {0.37, 0.3, 0.13}) {
        for (int step = 0; step < 4; ++step) {
            const auto canvas = canvasOf(100, 100);
            drawImage({image, &pyramid, {}, scale, {-step * 1.0, -7.0}}, {SURROUND}, wxRect(0, 0, 100, 100),
                      *canvas);
            for (int y = 0; y < 50; ++y) {
                for (int x = 0; x < 50; ++x)
                    ASSERT_NEAR(at(*canvas, x, y).g, 128, 1) << x << ", " << y << " at " << scale;
            }
        }
    }
}

TEST(PictureRendererTest, slightlyReducedPixels_areAveragesOfTheImageItself)
{
    Image image = *Image::create(3, 1, PixelFormat::FLOAT32_GREY, 1.0f);
    const float values[] = {0.0f, 0.6f, 0.9f};
    std::memcpy(image.row(0).data(), values, sizeof(values));
    const auto canvas = canvasOf(4, 2);
    drawImage({image, nullptr, {}, 2.0 / 3.0, {0.0, 0.0}}, {SURROUND}, wxRect(0, 0, 4, 2), *canvas);
    EXPECT_EQ(at(*canvas, 0, 0).r, 51);  // (0 + 0.6 / 2) / 1.5 = 0.2
    EXPECT_EQ(at(*canvas, 1, 0).r, 204); // (0.6 / 2 + 0.9) / 1.5 = 0.8
    EXPECT_EQ(at(*canvas, 2, 0), UNTOUCHED);
}

TEST(PictureRendererTest, withoutReducedCopies_showsSinglePixels)
{
    const Image image = random(PixelFormat::UINT8_RGB, 64, 64, 1.0f);
    const wxImage expected = develop(image, {}, wxRect(0, 0, 64, 64));
    const auto canvas = canvasOf(16, 16);
    drawImage({image, nullptr, {}, 0.25, {0.0, 0.0}}, {SURROUND}, wxRect(0, 0, 16, 16), *canvas);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            ASSERT_EQ(at(*canvas, x, y), Tests::pixelAt(expected, 4 * x + 2, 4 * y + 2));
    }
}

TEST(PictureRendererTest, clip_limitsWhatIsDrawn)
{
    const Image image = uniform({1.0f, 0.0f, 0.0f, 1.0f}, 50, 50);
    for (const double scale : {0.25, 1.0, 4.0}) {
        const auto canvas = canvasOf(30, 30);
        drawImage({image, nullptr, {}, scale, {-5.0, -5.0}}, {SURROUND}, wxRect(3, 2, 4, 5), *canvas);
        for (int y = 0; y < 30; ++y) {
            for (int x = 0; x < 30; ++x) {
                const bool isInside = wxRect(3, 2, 4, 5).Contains(x, y);
                EXPECT_EQ(at(*canvas, x, y), isInside ? (RgbBytes{255, 0, 0}) : UNTOUCHED) << x << ", " << y;
            }
        }
    }
    const auto canvas = canvasOf(5, 5);
    drawImage({image, nullptr, {}, 1.0, {70.0, 0.0}}, {SURROUND}, wxRect(0, 0, 5, 5), *canvas);
    EXPECT_EQ(at(*canvas, 4, 4), UNTOUCHED);
    drawImage({image, nullptr, {}, 1.0, {0.0, 0.0}}, {SURROUND}, wxRect(-9, -9, 50, 50), *canvas);
    EXPECT_EQ(at(*canvas, 4, 4), (RgbBytes{255, 0, 0}));
}

TEST(PictureRendererTest, transparentPixels_showWhatLiesBehind)
{
    const Image image = uniform({1.0f, 1.0f, 1.0f, 0.0f}, 40, 40);
    for (const double scale : {0.6, 1.0, 2.0}) {
        const auto canvas = canvasOf(20, 20);
        drawImage({image, nullptr, {}, scale, {0.0, 0.0}}, {SURROUND, 4}, wxRect(0, 0, 20, 20), *canvas);
        EXPECT_EQ(at(*canvas, 7, 9), SURROUND);
        drawImage({image, nullptr, {.checkerboard = true}, scale, {0.0, 0.0}}, {SURROUND, 4},
                  wxRect(0, 0, 20, 20), *canvas);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                EXPECT_EQ(at(*canvas, x, y),
                          (x / 4 + y / 4) % 2 == 0 ? Backdrop::LIGHT_CHECK : Backdrop::DARK_CHECK);
            }
        }
    }
}

TEST(PictureRendererTest, halfTransparentPixels_areMixed)
{
    const Image image = uniform({1.0f, 1.0f, 0.0f, 0.5f}, 4, 4);
    const auto canvas = canvasOf(4, 4);
    drawImage({image, nullptr, {}, 1.0, {0.0, 0.0}}, {RgbBytes{0, 255, 100}}, wxRect(0, 0, 4, 4), *canvas);
    EXPECT_EQ(at(*canvas, 2, 2), (RgbBytes{128, 255, 50}));
}

namespace {

RgbBytes screenOf(const Image& image, double scale, AlphaKind kind, const DisplaySettings& settings = {})
{
    constexpr RgbBytes BEHIND{0, 255, 100};
    const auto canvas = canvasOf(4, 4);
    drawImage({image, nullptr, settings, scale, {0.0, 0.0}, kind}, {BEHIND}, wxRect(0, 0, 4, 4), *canvas);
    return at(*canvas, 2, 2);
}

// The byte of light that the gamma 2.2 encodes.
std::uint8_t byteOfLight(double light)
{
    return static_cast<std::uint8_t>(std::lround(255.0 * std::pow(std::min(light, 1.0), 1.0 / 2.2)));
}

double lightOfByte(int byte)
{
    return std::pow(byte / 255.0, 2.2);
}

Image uniformLight(const Rgb& value)
{
    Image image = *Image::create(4, 4, PixelFormat::FLOAT32_RGBA, 2.2f);
    const Image encoded = uniform(value, 4, 4);
    for (int y = 0; y < 4; ++y)
        std::memcpy(image.row(y).data(), encoded.row(y).data(), image.rowBytes());
    return image;
}

} // namespace

TEST(PictureRendererTest, straightColours_areMixedAsLight)
{
    const Image image = uniformLight({0.8f, 0.1f, 3.0f, 0.25f});
    const RgbBytes expected{byteOfLight(0.8 * 0.25), byteOfLight(0.1 * 0.25 + 0.75),
                            byteOfLight(3.0 * 0.25 + 0.75 * lightOfByte(100))};
    for (const double scale : {0.7, 1.0, 2.0})
        EXPECT_EQ(screenOf(image, scale, AlphaKind::STRAIGHT), expected) << scale;
}

TEST(PictureRendererTest, associatedColours_areAddedToTheLightBehind)
{
    const Image image = uniformLight({0.2f, 0.025f, 0.1f, 0.25f});
    const RgbBytes expected{byteOfLight(0.2), byteOfLight(0.025 + 0.75),
                            byteOfLight(0.1 + 0.75 * lightOfByte(100))};
    for (const double scale : {0.7, 1.0, 2.0})
        EXPECT_EQ(screenOf(image, scale, AlphaKind::ASSOCIATED), expected) << scale;
}

TEST(PictureRendererTest, sameColoursOfBothKinds_lookTheSame)
{
    const Image straight = uniformLight({0.8f, 0.1f, 0.5f, 0.25f});
    const Image associated = uniformLight({0.2f, 0.025f, 0.125f, 0.25f});
    for (const auto encoding : {Viewer::Encoding::GAMMA, Viewer::Encoding::SRGB, Viewer::Encoding::LINEAR}) {
        const DisplaySettings settings{.exposure = 0.5f, .gamma = 1.2f, .encoding = encoding};
        EXPECT_EQ(screenOf(straight, 1.0, AlphaKind::STRAIGHT, settings),
                  screenOf(associated, 1.0, AlphaKind::ASSOCIATED, settings));
    }
}

TEST(PictureRendererTest, lightWithoutAlpha_glows)
{
    const Image image = uniformLight({0.5f, 0.0f, 0.25f, 0.0f});
    EXPECT_EQ(screenOf(image, 1.0, AlphaKind::ASSOCIATED),
              (RgbBytes{byteOfLight(0.5), 255, byteOfLight(0.25 + lightOfByte(100))}));
    EXPECT_EQ(screenOf(image, 1.0, AlphaKind::STRAIGHT), (RgbBytes{0, 255, 100}));
}

TEST(PictureRendererTest, alpha_isNotEncodedByTheDisplayCurve)
{
    const Image image = uniformLight({0.0f, 0.0f, 0.0f, 0.5f});
    const RgbBytes half{0, byteOfLight(0.5), byteOfLight(0.5 * lightOfByte(100))};
    EXPECT_EQ(screenOf(image, 1.0, AlphaKind::STRAIGHT), half);
    EXPECT_EQ(screenOf(image, 1.0, AlphaKind::ASSOCIATED), half);
}

TEST(PictureRendererTest, exposure_leavesWhatLiesBehind)
{
    const Image image = uniformLight({0.0f, 0.0f, 0.0f, 0.0f});
    for (const float exposure : {-3.0f, 3.0f}) {
        for (const auto encoding :
             {Viewer::Encoding::GAMMA, Viewer::Encoding::SRGB, Viewer::Encoding::LINEAR}) {
            EXPECT_EQ(screenOf(image, 1.0, AlphaKind::ASSOCIATED,
                               {.exposure = exposure, .gamma = 1.7f, .encoding = encoding}),
                      (RgbBytes{0, 255, 100}));
        }
    }
}

TEST(PictureRendererTest, alphaThatIsNoNumber_showsWhatLiesBehind)
{
    const float bad = std::nanf("");
    const float inf = std::numeric_limits<float>::infinity();
    EXPECT_EQ(screenOf(uniformLight({0.5f, 0.5f, 0.5f, bad}), 1.0, AlphaKind::STRAIGHT),
              (RgbBytes{0, 255, 100}));
    EXPECT_EQ(screenOf(uniformLight({inf, inf, inf, 0.0f}), 1.0, AlphaKind::STRAIGHT),
              (RgbBytes{0, 255, 100}));
    EXPECT_EQ(screenOf(uniformLight({inf, 0.0f, inf, 0.5f}), 1.0, AlphaKind::ASSOCIATED),
              (RgbBytes{255, byteOfLight(0.5), 255}));
}

TEST(PictureRendererTest, imagesOfAnyShape_areDrawnAtAnyScale)
{
    const float bad = std::nanf("");
    for (const Pixel& size : {Pixel{1, 1}, Pixel{1, 30000}, Pixel{30000, 1}, Pixel{3, 700}}) {
        const Image image = uniform({bad, bad, bad, bad}, size.x, size.y);
        const Viewer::Pyramid pyramid(image);
        for (const double scale : {1.0 / 4096, 0.02, 0.3, 0.99, 1.0, 7.7, 256.0}) {
            for (const double origin : {-1e6, -13.0, 0.0, 30.5}) {
                const auto canvas = canvasOf(64, 48);
                drawImage({image, &pyramid, {.falseColor = Viewer::FalseColor::VALUES}, scale, {origin, 2.0}},
                          {SURROUND}, wxRect(0, 0, 64, 48), *canvas);
            }
            const auto canvas = canvasOf(64, 48);
            drawImage({image, &pyramid, {.falseColor = Viewer::FalseColor::VALUES}, scale, {30.0, 20.0}},
                      {SURROUND}, wxRect(0, 0, 64, 48), *canvas);
            EXPECT_EQ(at(*canvas, 30, 20), (RgbBytes{0, 255, 0}))
                << size.x << " x " << size.y << " at " << scale;
        }
    }
}

TEST(PictureRendererTest, notANumber_makesOneReducedPixelBlack)
{
    Image image = uniform({1.0f, 1.0f, 1.0f, 1.0f}, 64, 64);
    const Rgb bad{std::nanf(""), std::nanf(""), std::nanf(""), 1.0f};
    std::memcpy(image.row(63 - 21).data() + 9 * sizeof(Rgb), &bad, sizeof(bad));
    const Viewer::Pyramid pyramid(image);
    const auto canvas = canvasOf(16, 16);
    drawImage({image, &pyramid, {}, 0.25, {0.0, 0.0}}, {SURROUND}, wxRect(0, 0, 16, 16), *canvas);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool isBad = x == 2 && y == 5;
            EXPECT_EQ(at(*canvas, x, y), isBad ? (RgbBytes{0, 0, 0}) : (RgbBytes{255, 255, 255}));
        }
    }
}

TEST(PictureRendererTest, canvasWithoutPixels_isInvalid)
{
    EXPECT_FALSE(PixelCanvas(wxSize(0, 5)).isOk());
    EXPECT_FALSE(PixelCanvas(wxSize(5, -1)).isOk());
    EXPECT_FALSE(PixelCanvas(wxSize(2000000000, 2000000000)).isOk());
}
