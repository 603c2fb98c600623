// SPDX-License-Identifier: MIT
#include "apps/picker/ColorPickerDialog.h"

#include "../../NolvexLibWx/widgets/ImageSaveSettingsFixture.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "apps/picker/ChannelSlider.h"
#include "apps/picker/ColorPickerFactory.h"
#include "apps/picker/ColorSwatch.h"
#include "apps/picker/HexField.h"
#include "apps/picker/RecentColors.h"

#include <cmath>
#include <iterator>
#include <limits>

using namespace Nolvex;
using Picker::ChannelSlider;
using Picker::ColorPickerFactory;
using Picker::ColorSwatch;
using Picker::HexField;
using Picker::RecentColors;
using Tests::pumpUntil;
using Tests::typeKey;

namespace {

template<class Window>
void collect(const wxWindow& window, Array<Window*>& found)
{
    for (wxWindow* child : window.GetChildren()) {
        if (auto* wanted = dynamic_cast<Window*>(child))
            found.push_back(wanted);
        collect(*child, found);
    }
}

template<class Window>
Array<Window*> windowsOf(const wxWindow& window)
{
    Array<Window*> found;
    collect(window, found);
    return found;
}

struct ColorPickerDialogTest : Tests::FrameFixture
{
    ColorPickerDialogTest()
    {
        RecentColors::shared() = {};
        showFrame();
    }

    /// Runs a picker while the script operates its dialog.
    void pick(const Rgb& initial, std::function<void(wxDialog&)> script,
              const wxPoint& position = wxDefaultPosition)
    {
        const Tests::DialogScript watched(std::move(script));
        const AutoPtr<IColorPicker> picker = ColorPickerFactory().createPicker(
            Wx::getWindowNativeHandle(owner), L"Pick a colour", position, initial);
        picker->setPreviewCallback([this](const Rgb& color) {
            previews.push_back(color);
            if (onPreview)
                onPreview();
        });
        picker->setCommitCallback([this](const Rgb& color) { commits.push_back(color); });
        picker->runModal();
        closedAt = picker->getPosition();
        EXPECT_EQ(watched.dialogs(), 1);
    }

    static void click(wxWindow* window)
    {
        const wxSize size = window->GetClientSize();
        Tests::clickAt(window, wxPoint(size.x / 2, size.y / 2));
    }

    static void clickButton(const wxDialog& dialog, const wxString& label)
    {
        for (Wx::Button* button : windowsOf<Wx::Button>(dialog)) {
            if (button->GetLabel() == label)
                return click(button);
        }
        ADD_FAILURE() << "no button " << label;
    }

    wxPanel* owner = panel;
    Array<Rgb> previews;
    Array<Rgb> commits;
    Function<void()> onPreview;
    wxPoint closedAt;
};

constexpr Rgb BROWN{0.5f, 0.25f, 0.125f, 1.0f};
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE_LIGHT = std::numeric_limits<float>::infinity();

} // namespace

TEST_F(ColorPickerDialogTest, returnAtOnce_commitsTheFirstColourWithoutPreview)
{
    pick(BROWN, [](wxDialog&) { typeKey(WXK_RETURN); });
    EXPECT_EQ(commits, Array<Rgb>{BROWN});
    EXPECT_TRUE(previews.empty());
}

TEST_F(ColorPickerDialogTest, nanAndInfinity_surviveIfNothingIsEdited)
{
    pick({NOT_A_NUMBER, INFINITE_LIGHT, -INFINITE_LIGHT, 1e30f}, [](wxDialog& dialog) {
        // The focus goes through all controls.
        for (int i = 0; i < 20; ++i)
            typeKey(WXK_TAB);
        const Array<wxTextCtrl*> fields = windowsOf<wxTextCtrl>(dialog);
        const wchar_t* const texts[] = {L"nan", L"inf", L"-inf", L"> 1"};
        for (std::size_t i = 0; i < std::size(texts); ++i)
            EXPECT_EQ(fields[i]->GetValue(), texts[i]);
        clickButton(dialog, L"OK");
    });
    ASSERT_EQ(commits.size(), 1u);
    EXPECT_TRUE(std::isnan(commits[0].r));
    EXPECT_EQ(commits[0].g, INFINITE_LIGHT);
    EXPECT_EQ(commits[0].b, -INFINITE_LIGHT);
    EXPECT_EQ(commits[0].a, 1e30f);
    EXPECT_TRUE(previews.empty());
}

TEST_F(ColorPickerDialogTest, escapeCancelAndCloseBox_commitNothing)
{
    pick(BROWN, [](wxDialog&) {
        typeKey(WXK_END);
        typeKey(WXK_ESCAPE);
    });
    EXPECT_EQ(previews, (Array<Rgb>{{1.0f, 0.25f, 0.125f, 1.0f}}));
    pick(BROWN, [](wxDialog& dialog) { clickButton(dialog, L"Cancel"); });
    pick(BROWN, [](wxDialog& dialog) { dialog.Close(); });
    EXPECT_TRUE(commits.empty());
    EXPECT_TRUE(RecentColors::shared().colors().empty());
}

TEST_F(ColorPickerDialogTest, sliderUnderTheMouse_previewsEachPositionAndKeepsTheOthers)
{
    pick(BROWN, [](wxDialog& dialog) {
        auto* green = windowsOf<ChannelSlider>(dialog)[1];
        const int y = green->GetClientSize().y / 2;
        Tests::pressMouseAt(green, {green->knobPosition(), y});
        Tests::moveMouse(green, {green->GetClientSize().x + 50, y + 40});
        Tests::releaseMouse();
        Tests::moveMouse(green, {green->GetClientSize().x / 2, y});
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, (Array<Rgb>{{0.5f, 1.0f, 0.125f, 1.0f}}));
    ASSERT_FALSE(previews.empty());
    EXPECT_EQ(previews.back(), commits.front());
}

TEST_F(ColorPickerDialogTest, numberTypedIntoASpinner_countsBeforeReturnCloses)
{
    pick(BROWN, [](wxDialog& dialog) {
        windowsOf<Wx::Spinner>(dialog)[0]->SetFocus();
        wxUIActionSimulator().Text("2.5");
        Tests::pumpEvents();
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, (Array<Rgb>{{2.5f, 0.25f, 0.125f, 1.0f}}));
}

TEST_F(ColorPickerDialogTest, spinners_takeNegativeNumbers)
{
    pick(BROWN, [](wxDialog& dialog) {
        windowsOf<Wx::Spinner>(dialog)[2]->changeByUser(-0.75f);
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, (Array<Rgb>{{0.5f, 0.25f, -0.75f, 1.0f}}));
}

TEST_F(ColorPickerDialogTest, valueDraggedToBlackAndUpAgain_keepsTheHue)
{
    pick({0.0f, 0.0f, 0.5f, 1.0f}, [](wxDialog& dialog) {
        auto* value = windowsOf<ChannelSlider>(dialog)[6];
        value->SetFocus();
        typeKey(WXK_HOME);
        EXPECT_EQ(windowsOf<ChannelSlider>(dialog)[4]->number(), 240.0f);
        typeKey(WXK_END);
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, (Array<Rgb>{{0.0f, 0.0f, 1.0f, 1.0f}}));
}

TEST_F(ColorPickerDialogTest, hexField_takesColoursAndMarksWhatIsNone)
{
    pick(BROWN, [](wxDialog& dialog) {
        auto* hex = windowsOf<HexField>(dialog)[0];
        EXPECT_EQ(hex->GetValue(), L"#804020");
        hex->SetFocus();
        hex->SelectAll();
        wxUIActionSimulator().Text("00f");
        EXPECT_TRUE(pumpUntil([&] { return hex->GetValue() == L"00f"; }));
        EXPECT_FALSE(hex->isBad());
        typeKey('7');
        EXPECT_TRUE(pumpUntil([&] { return hex->isBad(); }));
        typeKey(WXK_RETURN);
        Tests::pumpEvents();
        EXPECT_TRUE(dialog.IsModal()) << "a text that is no colour keeps the dialog open";
        windowsOf<ChannelSlider>(dialog)[0]->SetFocus();
        EXPECT_TRUE(pumpUntil([&] { return hex->GetValue() == L"#0000ff"; }));
        EXPECT_FALSE(hex->isBad());
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, (Array<Rgb>{{0, 0, 1, 1}}));
}

TEST_F(ColorPickerDialogTest, clickOnTheColourBefore_returnsToIt)
{
    pick(BROWN, [](wxDialog& dialog) {
        typeKey(WXK_END);
        click(windowsOf<ColorSwatch>(dialog)[0]);
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits, Array<Rgb>{BROWN});
    EXPECT_EQ(previews.back(), BROWN);
}

TEST_F(ColorPickerDialogTest, lastColours_areOfferedToTheNextPicker)
{
    pick({0, 1, 0, 1}, [](wxDialog& dialog) {
        EXPECT_EQ(windowsOf<ColorSwatch>(dialog).size(), 2u);
        typeKey(WXK_RETURN);
    });
    pick({1, 0, 0, 1}, [](wxDialog&) { typeKey(WXK_RETURN); });
    pick(BROWN, [](wxDialog& dialog) {
        const Array<ColorSwatch*> swatches = windowsOf<ColorSwatch>(dialog);
        ASSERT_EQ(swatches.size(), 4u);
        EXPECT_EQ(swatches[2]->color(), (Rgb{1, 0, 0, 1}));
        swatches[2]->SetFocus();
        typeKey(WXK_RIGHT);
        EXPECT_TRUE(swatches[3]->HasFocus());
        typeKey(WXK_SPACE);
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(commits.back(), (Rgb{0, 1, 0, 1}));
}

TEST_F(ColorPickerDialogTest, tab_reachesEveryControl)
{
    pick(BROWN, [](wxDialog& dialog) {
        Array<wxWindow*> reached;
        for (int i = 0; i < 30; ++i) {
            reached.push_back(wxWindow::FindFocus());
            typeKey(WXK_TAB);
        }
        for (ChannelSlider* slider : windowsOf<ChannelSlider>(dialog))
            EXPECT_NE(std::find(reached.begin(), reached.end(), slider), reached.end());
        for (wxTextCtrl* field : windowsOf<wxTextCtrl>(dialog))
            EXPECT_NE(std::find(reached.begin(), reached.end(), field), reached.end());
        EXPECT_NE(std::find(reached.begin(), reached.end(), windowsOf<ColorSwatch>(dialog)[0]),
                  reached.end());
        typeKey(WXK_ESCAPE);
    });
}

TEST_F(ColorPickerDialogTest, position_isWhereThePreviousPickerWas)
{
    wxPoint shownAt;
    pick(BROWN, [&](wxDialog& dialog) {
        dialog.Move(300, 200);
        Tests::pumpEvents(200);
        shownAt = dialog.GetPosition();
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(closedAt, shownAt);
    pick(
        BROWN,
        [&](wxDialog& dialog) {
            EXPECT_TRUE(pumpUntil([&] { return dialog.GetPosition() == shownAt; }));
            typeKey(WXK_RETURN);
        },
        closedAt);
}

TEST_F(ColorPickerDialogTest, positionBeyondTheScreen_isMovedOntoTheMonitor)
{
    pick(
        BROWN,
        [&](wxDialog& dialog) {
            const Bucket area = Wx::getMonitorRegionByPoint({0, 0}, Wx::MonitorRegionType::WORK_AREA);
            const Bucket region = Wx::toBucket(dialog.GetScreenRect());
            EXPECT_EQ(area.intersected(region).width(), region.width());
            EXPECT_GE(region.min.y, area.min.y);
            typeKey(WXK_RETURN);
        },
        wxPoint(100'000, -100'000));
}

TEST_F(ColorPickerDialogTest, withoutPosition_opensBesideItsOwner)
{
    pick(BROWN, [&](wxDialog& dialog) {
        EXPECT_FALSE(dialog.GetScreenRect().Intersects(owner->GetScreenRect()));
        typeKey(WXK_RETURN);
    });
}

TEST_F(ColorPickerDialogTest, ownerDestroyed_cancels)
{
    pick(BROWN, [&](wxDialog&) {
        owner->Destroy();
        owner = nullptr;
    });
    EXPECT_TRUE(commits.empty());
}

TEST_F(ColorPickerDialogTest, frameOfTheOwnerDestroyed_cancels)
{
    pick(BROWN, [&](wxDialog&) { frame->Destroy(); });
    EXPECT_TRUE(commits.empty());
    EXPECT_TRUE(pumpUntil([&] { return frame.get() == nullptr; }));
}

TEST_F(ColorPickerDialogTest, previewThatDestroysTheFrame_cancels)
{
    onPreview = [this] {
        if (frame)
            delete frame.get();
    };
    pick(BROWN, [](wxDialog&) { typeKey(WXK_END); });
    EXPECT_TRUE(commits.empty());
}

TEST_F(ColorPickerDialogTest, typedNumberWhosePreviewDestroysTheFrame_cancels)
{
    onPreview = [this] {
        if (frame)
            delete frame.get();
    };
    pick(BROWN, [](wxDialog& dialog) {
        windowsOf<Wx::Spinner>(dialog)[0]->SetFocus();
        wxUIActionSimulator().Text("0.75");
        Tests::pumpEvents();
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(previews.size(), 1u);
    EXPECT_TRUE(commits.empty());
}

TEST_F(ColorPickerDialogTest, withoutOwner_works)
{
    owner = nullptr;
    pick(BROWN, [](wxDialog&) { typeKey(WXK_RETURN); });
    EXPECT_EQ(commits.size(), 1u);
}
