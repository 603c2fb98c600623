// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRows.h"

#include "support/FloatImage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

using namespace Nolvex;
using Viewer::Channel;
using Viewer::DisplaySettings;
using Viewer::Encoding;
using Viewer::FalseColor;
using Viewer::Scene;
using Viewer::SceneRows;

namespace {

constexpr RgbBytes SURROUND{10, 200, 30};

// Values from below the range of the screen to far above, and every alpha.
Viewer::SharedPicture light(int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::FLOAT32_RGBA, 2.2f);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<Rgb*>(image.row(y).data());
        for (int x = 0; x < width; ++x) {
            const float across = static_cast<float>(x) / static_cast<float>(width);
            row[x] = {4.0f * across - 0.5f, static_cast<float>(y) / static_cast<float>(height), 0.3f, across};
        }
    }
    return std::make_shared<const Viewer::Picture>(L"light", std::move(image));
}

Scene sceneOf(const Viewer::SharedPicture& picture, const DisplaySettings& display = {})
{
    const Pixel frame = picture->frameSize();
    return {
        .size = wxSize(frame.x, frame.y), .picture = picture, .display = display, .backdrop = {SURROUND, 6}};
}

// Compares the rows with the pixels that the renderer of the view makes of the whole scene at once.
void expectRowsOfView(const Scene& scene)
{
    Viewer::SceneRenderer renderer;
    const Viewer::Platform::PixelCanvas* const shown = renderer.render(scene);
    ASSERT_NE(shown, nullptr);
    SceneRows rows(scene);
    ASSERT_EQ(rows.size(), scene.size);
    ASSERT_EQ(rows.rowBytes(), static_cast<std::size_t>(scene.size.x) * 3);
    std::vector<std::byte> row(rows.rowBytes());
    for (int y = 0; y < scene.size.y; ++y) {
        rows.encode(y, row.data());
        const std::uint32_t* const wanted = shown->row(y);
        for (int x = 0; x < scene.size.x; ++x) {
            const std::byte* const bytes = &row[static_cast<std::size_t>(x) * 3];
            const auto found = std::to_integer<std::uint32_t>(bytes[0]) << 16 |
                               std::to_integer<std::uint32_t>(bytes[1]) << 8 |
                               std::to_integer<std::uint32_t>(bytes[2]);
            ASSERT_EQ(found, wanted[x] & 0xffffffu) << x << ", " << y;
        }
    }
}

} // namespace

TEST(SceneRowsTest, rows_areThePixelsOfTheViewWithEverySetting)
{
    const Viewer::SharedPicture picture = light(90, 70);
    for (const DisplaySettings& display :
         {DisplaySettings{}, DisplaySettings{.exposure = 2.5f, .gamma = 1.7f},
          DisplaySettings{.encoding = Encoding::SRGB}, DisplaySettings{.encoding = Encoding::LINEAR},
          DisplaySettings{.channel = Channel::LUMINANCE}, DisplaySettings{.channel = Channel::ALPHA},
          DisplaySettings{.falseColor = FalseColor::STOPS, .falseColorFrom = -3.0f, .falseColorTo = 2.0f},
          DisplaySettings{.checkerboard = true}})
        expectRowsOfView(sceneOf(picture, display));
}

TEST(SceneRowsTest, highPicture_isMadeOfBandsWithoutSeams)
{
    // Three bands, the last one of which is not whole.
    expectRowsOfView(sceneOf(light(1500, 3100), {.checkerboard = true}));
}

TEST(SceneRowsTest, comparison_beginsAtTheDivider)
{
    Scene scene = sceneOf(light(40, 30));
    scene.comparison = light(30, 40); // narrower than the frame, and higher
    scene.divider = 17;
    expectRowsOfView(scene);
}

TEST(SceneRowsTest, imageBesideItsFrame_hasTheSurroundAroundIt)
{
    Viewer::ReadImage read{Tests::placesAsFloats(20, 10, 1.0f)};
    read.origin = {-5, 4};
    read.frameSize = Pixel{18, 20};
    const auto picture = std::make_shared<const Viewer::Picture>(L"part", std::move(read), nullptr, 0);
    expectRowsOfView(sceneOf(picture));
    SceneRows rows(sceneOf(picture));
    std::vector<std::byte> row(rows.rowBytes());
    rows.encode(3, row.data());
    EXPECT_EQ(row[1], std::byte(SURROUND.g));
}

TEST(SceneRowsTest, rowsInAnyOrder_areTheSame)
{
    const Scene scene = sceneOf(light(1500, 3100));
    SceneRows one(scene);
    SceneRows other(scene);
    std::vector<std::byte> wanted(one.rowBytes());
    std::vector<std::byte> found(one.rowBytes());
    one.encode(1, wanted.data());
    other.encode(3099, found.data());
    other.encode(1, found.data());
    EXPECT_EQ(found, wanted);
}
