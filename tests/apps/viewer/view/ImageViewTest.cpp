// SPDX-License-Identifier: MIT
#include "apps/viewer/view/ImageView.h"

#include "NolvexLib/Optional.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "support/PictureWindow.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <utility>

using namespace Nolvex;
using namespace std::chrono_literals;

namespace {

// The window of the viewer offers more room at every scale.
constexpr Pixel PICTURE_SIZE{121, 75};

// Neighbours differ in blue by as much as possible, so that every blending of two pixels shows. Red and green
// are the place of the pixel.
RgbBytes checkAt(Pixel place)
{
    const bool isLight = (place.x + place.y) % 2 != 0;
    return {static_cast<std::uint8_t>(place.x), static_cast<std::uint8_t>(place.y),
            static_cast<std::uint8_t>(isLight ? 255 : 0)};
}

Rgb colourAt(Pixel place)
{
    const RgbBytes check = checkAt(place);
    return Tests::fromBytes(check.r, check.g, check.b);
}

Viewer::SharedPicture checks()
{
    Expected<Image, String> image =
        Image::create(PICTURE_SIZE.x, PICTURE_SIZE.y, PixelFormat::UINT8_RGB, 1.0f);
    for (int y = 0; y < PICTURE_SIZE.y; ++y) {
        std::byte* to = image->row(PICTURE_SIZE.y - 1 - y).data();
        for (int x = 0; x < PICTURE_SIZE.x; ++x) {
            const RgbBytes check = checkAt({x, y});
            for (const std::uint8_t value : {check.r, check.g, check.b})
                *to++ = static_cast<std::byte>(value);
        }
    }
    return std::make_shared<const Viewer::Picture>(L"checks", std::move(*image));
}

struct ImageViewTest : Tests::ViewerFixture
{
    /// Returns what the screen shows of the view, in the pixels of the device.
    BitmapImpl<Rgb> onTheScreen() const
    {
        const wxRect area(view->ClientToScreen(wxPoint(0, 0)), view->GetClientSize());
        Optional<Wx::ScreenCaptureResult> result;
        const Wx::ScreenCaptureRequest request = Wx::requestScreenRegion(
            Wx::toBucket(area), 1s, [&](Wx::ScreenCaptureResult answer) { result = std::move(answer); });
        EXPECT_TRUE(Tests::pumpUntil([&] { return result.has_value(); }));
        return result && *result ? std::move(**result) : BitmapImpl<Rgb>();
    }

    /// Returns the corner of the picture in the image of the view. The window manager may put the window at a
    /// pixel of the device that is no whole pixel of wxWidgets, so that the picture is found near the place.
    Optional<Pixel> cornerIn(const BitmapImpl<Rgb>& shown) const
    {
        const auto scale = static_cast<std::int32_t>(view->GetContentScaleFactor());
        const wxSize room = view->GetClientSize() - view->shownSize();
        const Pixel place = Pixel{room.x / 2, room.y / 2} * scale;
        for (std::int32_t y = place.y - scale + 1; y < place.y + scale; ++y) {
            for (std::int32_t x = place.x - scale + 1; x < place.x + scale; ++x) {
                const Bucket whole{{x, y}, Pixel{x, y} + PICTURE_SIZE};
                if (whole.intersected({{0, 0}, shown.size()}) == whole && shown.at(x, y) == colourAt({0, 0}))
                    return Pixel{x, y};
            }
        }
        return {};
    }
};

} // namespace

TEST_F(ImageViewTest, eachPixelOfThePicture_isAPixelOfTheDevice)
{
    show(checks());
    BitmapImpl<Rgb> shown;
    Optional<Pixel> corner;
    ASSERT_TRUE(Tests::pumpUntil([&] {
        shown = onTheScreen();
        corner = cornerIn(shown);
        return corner.has_value();
    }));
    for (std::int32_t y = 0; y < PICTURE_SIZE.y; ++y) {
        for (std::int32_t x = 0; x < PICTURE_SIZE.x; ++x)
            ASSERT_EQ(shown.at(corner->x + x, corner->y + y), colourAt({x, y})) << x << ", " << y;
    }
}
