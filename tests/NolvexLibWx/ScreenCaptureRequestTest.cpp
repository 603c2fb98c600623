// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCaptureRequest.h"

#include "CapturedRegions.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/Events.h"
#include "support/PictureWindow.h"

#include <wx/display.h>
#include <wx/frame.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using namespace std::chrono_literals;
using Wx::requestScreenRegion;
using Wx::ScreenCaptureRequest;
using Wx::ScreenCaptureResult;

namespace {

// Returns an empty image if there is no answer or no picture.
BitmapImpl<Rgb> captured(const Bucket& region)
{
    Optional<ScreenCaptureResult> result;
    const ScreenCaptureRequest request =
        requestScreenRegion(region, 1s, [&](ScreenCaptureResult answer) { result = std::move(answer); });
    EXPECT_TRUE(Tests::pumpUntil([&] { return result.has_value(); }));
    EXPECT_TRUE(result && *result);
    return result && *result ? std::move(**result) : BitmapImpl<Rgb>();
}

} // namespace

TEST(ScreenCaptureRequestTest, picture_isThatOfTheScreenInThePixelsOfTheDevice)
{
    const wxSize size(60, 50);
    Tests::PictureWindow window(size);
    window.show(Tests::patternPicture(size, 3));
    ASSERT_TRUE(window.isSeen());
    const BitmapImpl<Rgb> image = captured(window.region());
    const BitmapImpl<Rgb> expected = window.expectedColours();
    const auto scale = static_cast<std::int32_t>(window.frame()->GetContentScaleFactor());
    ASSERT_EQ(image.size(), expected.size() * scale);
    for (std::int32_t y = 0; y < image.height(); ++y) {
        for (std::int32_t x = 0; x < image.width(); ++x)
            ASSERT_EQ(image.at(x, y), expected.at(x / scale, y / scale)) << x << ", " << y;
    }
}

TEST(ScreenCaptureRequestTest, regionPartlyOutside_isTransparentThere)
{
    const Pixel corner = Wx::toPixel(wxDisplay(0u).GetGeometry().GetTopLeft());
    const BitmapImpl<Rgb> image = captured({corner - Pixel{7, 5}, corner + Pixel{3, 2}});
    ASSERT_FALSE(image.isEmpty());
    EXPECT_EQ(image.at(0, 0), Tests::TRANSPARENT_BLACK);
    EXPECT_EQ(image.at(image.width() - 1, image.height() - 1).a, 1.0f);
}

TEST(ScreenCaptureRequestTest, withdrawnByItsOwner_isNotAnswered)
{
    bool isAnswered = false;
    {
        const ScreenCaptureRequest request =
            requestScreenRegion({{0, 0}, {9, 9}}, 1s, [&](const ScreenCaptureResult&) { isAnswered = true; });
        EXPECT_TRUE(request.isOpen());
    }
    Tests::pumpEvents(50);
    EXPECT_FALSE(isAnswered);
}

TEST(ScreenCaptureRequestTest, severalRequests_areAnsweredInTheirOrder)
{
    Array<int> order;
    Array<ScreenCaptureRequest> requests;
    for (int i = 0; i < 5; ++i)
        requests.push_back(requestScreenRegion(
            {{0, 0}, {9, 9}}, 1s, [&order, i](const ScreenCaptureResult&) { order.push_back(i); }));
    EXPECT_TRUE(Tests::pumpUntil([&] { return order.size() == 5; }));
    EXPECT_EQ(order, (Array<int>{0, 1, 2, 3, 4}));
}

TEST(ScreenCaptureRequestTest, answer_mayDestroyAWindow)
{
    const wxWeakRef<wxFrame> frame(new wxFrame(nullptr, wxID_ANY, "frame"));
    const ScreenCaptureRequest request =
        requestScreenRegion({{0, 0}, {9, 9}}, 1s, [&](const ScreenCaptureResult&) { frame->Destroy(); });
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame == nullptr; }));
}
