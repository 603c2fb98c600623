// SPDX-License-Identifier: MIT
#include "apps/viewer/view/SceneRenderer.h"

#include "support/Events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>

using namespace Nolvex;
using namespace std::chrono_literals;
using Viewer::Scene;
using Viewer::SceneRenderer;

namespace {

const wxSize VIEW(160, 120);

// Values that differ from pixel to pixel, with alpha if there are four channels.
Image noise(PixelFormat format, int width, int height)
{
    Image image = *Image::create(width, height, format, 1.0f);
    unsigned state = 1;
    for (int y = 0; y < height; ++y) {
        for (std::byte& byte : image.row(y)) {
            state = state * 1664525u + 1013904223u;
            byte = static_cast<std::byte>(state >> 24);
        }
    }
    return image;
}

// A picture whose neighbouring pixels are nearly the same.
Image slope(int width, int height)
{
    Image image = *Image::create(width, height, PixelFormat::UINT8_GREY, 1.0f);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.row(y)[static_cast<std::size_t>(x)] = static_cast<std::byte>((x + y) / 24);
    }
    return image;
}

Viewer::SharedPicture pictureOf(Image image, const Pixel& origin = {0, 0})
{
    Viewer::ReadImage read{std::move(image)};
    read.origin = origin;
    return std::make_shared<const Viewer::Picture>(L"test", std::move(read), nullptr, 0);
}

Scene sceneOf(const Viewer::SharedPicture& picture, double scale)
{
    return {.size = VIEW,
            .scale = scale,
            .origin = {-20, -10},
            .picture = picture,
            .backdrop = {{10, 20, 30}, 8}};
}

void expectSame(const Viewer::Platform::PixelCanvas* found, const Viewer::Platform::PixelCanvas* wanted)
{
    ASSERT_NE(found, nullptr);
    ASSERT_NE(wanted, nullptr);
    for (int y = 0; y < VIEW.y; ++y) {
        for (int x = 0; x < VIEW.x; ++x)
            ASSERT_EQ(found->row(y)[x] & 0xffffffu, wanted->row(y)[x] & 0xffffffu) << x << ", " << y;
    }
}

void expectAsDrawnAnew(SceneRenderer& renderer, const Scene& scene)
{
    SceneRenderer other;
    expectSame(renderer.render(scene), other.render(scene));
}

void panAbout(Scene scene)
{
    SceneRenderer renderer;
    renderer.render(scene);
    for (const wxPoint& distance :
         {wxPoint(7, 7), wxPoint(-7, 3), wxPoint(5, -40), wxPoint(-60, -1), wxPoint(0, 9), wxPoint(11, 0),
          wxPoint(300, 0), wxPoint(-300, 200), wxPoint(-90, -260)}) {
        scene.origin += distance;
        expectAsDrawnAnew(renderer, scene);
    }
}

} // namespace

TEST(SceneRendererTest, movedScene_isThatDrawnAnewAtEveryScale)
{
    for (const double scale : {0.2, 0.37, 0.5, 0.6, 0.75, 1.0, 1.3, 3.7, 20.0})
        panAbout(sceneOf(pictureOf(noise(PixelFormat::UINT8_RGB, 150, 110)), scale));
}

TEST(SceneRendererTest, movedTransparentScene_isThatDrawnAnew)
{
    for (const bool hasPattern : {false, true}) {
        Scene scene = sceneOf(pictureOf(noise(PixelFormat::UINT8_RGBA, 150, 110)), 0.8);
        scene.display.checkerboard = hasPattern;
        panAbout(scene);
    }
}

TEST(SceneRendererTest, movedComparison_isThatDrawnAnewOnBothSidesOfTheDivider)
{
    Scene scene = sceneOf(pictureOf(noise(PixelFormat::UINT8_RGB, 150, 110)), 0.9);
    scene.comparison = pictureOf(noise(PixelFormat::UINT8_GREY, 90, 150), {5, -8});
    for (const int divider : {0, 1, 77, 160}) {
        scene.divider = divider;
        panAbout(scene);
    }
}

TEST(SceneRendererTest, movedSceneWithAnotherDifference_isDrawnAnew)
{
    SceneRenderer renderer;
    Scene scene = sceneOf(pictureOf(noise(PixelFormat::UINT8_RGB, 150, 110)), 0.9);
    renderer.render(scene);
    scene.origin += wxPoint(3, 4);
    scene.display.exposure = 1.0f;
    expectAsDrawnAnew(renderer, scene);
}

TEST(SceneRendererTest, zoomingALargePicture_isDraftedAndRightAMomentLater)
{
    const Viewer::SharedPicture picture = pictureOf(slope(3000, 2000));
    SceneRenderer renderer;
    renderer.render(sceneOf(picture, 0.4));
    ASSERT_TRUE(Tests::pumpUntil([&] { return renderer.canImprove(); }));
    renderer.render(sceneOf(picture, 0.4));
    ASSERT_FALSE(renderer.isProvisional());
    const Scene zoomed = sceneOf(picture, 0.6);
    const Viewer::Platform::PixelCanvas* const draft = renderer.render(zoomed);
    ASSERT_NE(draft, nullptr);
    EXPECT_TRUE(renderer.isProvisional());
    SceneRenderer other;
    const Viewer::Platform::PixelCanvas* const right = other.render(zoomed);
    EXPECT_FALSE(other.isProvisional());
    for (int y = 20; y < VIEW.y; ++y) {
        for (int x = 20; x < VIEW.x; ++x)
            ASSERT_NEAR(static_cast<int>(draft->row(y)[x] & 0xffu),
                        static_cast<int>(right->row(y)[x] & 0xffu), 1);
    }
    ASSERT_TRUE(Tests::pumpUntil([&] { return renderer.canImprove(); }));
    expectSame(renderer.render(zoomed), right);
    EXPECT_FALSE(renderer.isProvisional());
}

TEST(SceneRendererTest, zoomingASmallPicture_isRightAtOnce)
{
    const Viewer::SharedPicture picture = pictureOf(noise(PixelFormat::UINT8_RGB, 150, 110));
    SceneRenderer renderer;
    renderer.render(sceneOf(picture, 0.4));
    expectAsDrawnAnew(renderer, sceneOf(picture, 0.6));
    EXPECT_FALSE(renderer.isProvisional());
}

TEST(SceneRendererTest, firstPictureBetweenHalfAndWhole_isRightAtOnce)
{
    const Viewer::SharedPicture picture = pictureOf(slope(3000, 2000));
    SceneRenderer renderer;
    renderer.render(sceneOf(picture, 0.6));
    EXPECT_FALSE(renderer.isProvisional());
}
