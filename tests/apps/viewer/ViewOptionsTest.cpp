// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewOptions.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "apps/picker/ColorPickerDialog.h"
#include "support/Gestures.h"
#include "support/ModalDialogs.h"
#include "support/ViewerFixture.h"

using namespace Nolvex;
using Viewer::Channel;
using Viewer::DisplaySettings;

namespace {

struct ViewOptionsTest : Tests::ViewerFixture
{
    Wx::Spinner* exposure = nullptr;
    Wx::ComboBox* channel = nullptr;

    void show(const Viewer::SharedPicture& picture)
    {
        ViewerFixture::show(picture);
        exposure = Tests::findIn<Wx::Spinner>(frame);
        channel = Tests::findIn<Wx::ComboBox>(frame);
        ASSERT_NE(exposure, nullptr);
        ASSERT_NE(channel, nullptr);
    }

    void choose(Channel wanted) const { channel->selectId(static_cast<int>(wanted), true); }

    Wx::ColorPickerButton* surround() const { return Tests::findIn<Wx::ColorPickerButton>(frame); }

    void unfoldOptions() const
    {
        Tests::findIn<Wx::CollapsiblePanel>(frame)->setCollapsed(false);
        EXPECT_TRUE(Tests::pumpUntil([&] { return frame->IsActive() && surround()->IsShownOnScreen(); }));
        Tests::pumpEvents();
    }

    /// Returns when the picker has ended.
    void clickSurround() const { Tests::clickAt(surround(), wxPoint(5, 5)); }
};

Picker::ColorPickerDialog* shownPicker()
{
    return Tests::activeModal<Picker::ColorPickerDialog>();
}

Viewer::SharedPicture uniform(const Rgb& value, float gamma)
{
    Image image = *Image::create(30, 20, PixelFormat::FLOAT32_RGB, gamma);
    for (std::int32_t y = 0; y < 20; ++y) {
        auto* row = reinterpret_cast<float*>(image.row(y).data());
        for (std::int32_t x = 0; x < 30; ++x) {
            *row++ = value.r;
            *row++ = value.g;
            *row++ = value.b;
        }
    }
    return std::make_shared<const Viewer::Picture>(L"uniform", std::move(image));
}

} // namespace

TEST_F(ViewOptionsTest, exposure_changesThePictureOnTheScreen)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
    exposure->changeByUser(2.0f);
    // The screen makes light by the exponent 2.2, so that four times the light is 4 ^ (1 / 2.2) times the
    // value.
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{239, 120, 0}));
    exposure->changeByUser(0.0f);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
}

TEST_F(ViewOptionsTest, channel_isShownInGrey)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    choose(Channel::GREEN);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{64, 64, 64}));
    choose(Channel::ALPHA);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{255, 255, 255}));
    choose(Channel::RGB);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
}

TEST_F(ViewOptionsTest, settings_areKeptForTheNextPicture)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    exposure->changeByUser(2.0f);
    choose(Channel::RED);
    ASSERT_TRUE(frame->openPicture(Tests::testPicture(L"pattern.png")));
    EXPECT_EQ(view->display(), (DisplaySettings{.exposure = 2.0f, .channel = Channel::RED}));
    const RgbBytes corner = shownAtTheCorner();
    EXPECT_EQ(corner.r, corner.g);
}

TEST_F(ViewOptionsTest, channels_areAllThere)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    EXPECT_EQ(channel->getCount(), 6);
    EXPECT_EQ(channel->getSelectedId(), static_cast<int>(Channel::RGB));
}

TEST_F(ViewOptionsTest, surroundTriedAndCancelled_isTakenBack)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    unfoldOptions();
    const wxColour before = view->GetBackgroundColour();
    wxColour tried;
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [] { wxUIActionSimulator().Char(WXK_END); }},
        {"the surround is tried", [&] { return view->GetBackgroundColour() != before; },
         [&] {
             tried = view->GetBackgroundColour();
             wxUIActionSimulator().Char(WXK_ESCAPE);
         }},
    });
    clickSurround();
    EXPECT_EQ(tried, wxColour(255, before.Green(), before.Blue()));
    EXPECT_EQ(view->GetBackgroundColour(), before);
    EXPECT_EQ(surround()->getColor(), Wx::toRgb(before));
}

TEST_F(ViewOptionsTest, chosenSurround_staysAndReplacesTheLightOne)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    unfoldOptions();
    frame->setLightSurround(true);
    const wxColour light = view->GetBackgroundColour();
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [] { wxUIActionSimulator().Char(WXK_END); }},
        Tests::pressIn<Picker::ColorPickerDialog>(WXK_RETURN),
    });
    clickSurround();
    EXPECT_FALSE(frame->hasLightSurround());
    const wxColour chosen = view->GetBackgroundColour();
    EXPECT_EQ(chosen.Red(), 255);
    frame->setLightSurround(true);
    EXPECT_EQ(view->GetBackgroundColour(), light);
    frame->setLightSurround(false);
    EXPECT_EQ(view->GetBackgroundColour(), chosen);
}

TEST_F(ViewOptionsTest, surroundCancelledWhileTheLightOneIsShown_keepsTheLightOne)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    unfoldOptions();
    frame->setLightSurround(true);
    const wxColour light = view->GetBackgroundColour();
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [] { wxUIActionSimulator().Char(WXK_END); }},
        Tests::pressIn<Picker::ColorPickerDialog>(WXK_ESCAPE),
    });
    clickSurround();
    EXPECT_TRUE(frame->hasLightSurround());
    EXPECT_EQ(view->GetBackgroundColour(), light);
}

TEST_F(ViewOptionsTest, withoutAPicture_theSettingsDoNoHarm)
{
    show(nullptr);
    exposure->changeByUser(2.0f);
    choose(Channel::BLUE);
    Tests::pumpEvents(100);
    EXPECT_EQ(view->display(), (DisplaySettings{.exposure = 2.0f, .channel = Channel::BLUE}));
}
