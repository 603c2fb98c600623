// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include "NolvexLibWx/DpiScaling.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/dcclient.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace Nolvex;
using Wx::AutoSizedButton;
using Wx::scaleByDpi;

namespace {

constexpr RgbBytes ICON{200, 100, 50};

wxBitmap icon(int width, int height)
{
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width, height), ICON.r, ICON.g, ICON.b);
    return {image};
}

// Returns the size that a button of the default skin has with this label.
wxSize withPadding(const AutoSizedButton* button, const wxString& text)
{
    wxSize size = button->GetTextExtent(text);
    size.IncBy(scaleByDpi(10));
    return size;
}

struct AutoSizedButtonSizeTest : Tests::FrameFixture
{
    AutoSizedButton* make(const wxString& label, int minWidth = 0, int minHeight = 0) const
    {
        return new AutoSizedButton(panel, label, minWidth, minHeight);
    }
};

using AutoSizedButtonTest = AutoSizedButtonSizeTest;

} // namespace

TEST_F(AutoSizedButtonSizeTest, label_getsItsExtentPaddingAndFrame)
{
    const AutoSizedButton* button = make(L"A label");
    EXPECT_EQ(button->GetMinSize(), withPadding(button, L"A label") + wxSize(4, 4));
}

TEST_F(AutoSizedButtonSizeTest, leastSize_isScaled)
{
    EXPECT_EQ(make(L"OK", 200, 100)->GetMinSize(), wxSize(scaleByDpi(200), scaleByDpi(100)));
}

TEST_F(AutoSizedButtonSizeTest, emptyLabelWithoutIcon_isAsSmallAsItsFrame)
{
    EXPECT_EQ(make(wxString())->GetMinSize(), wxSize(4, 4));
    EXPECT_EQ(make(wxString(), -100, -100)->GetMinSize(), wxSize(4, 4));
    EXPECT_EQ(make(wxString(), 3, 3)->GetMinSize(),
              wxSize(std::max(4, scaleByDpi(3)), std::max(4, scaleByDpi(3))));
}

TEST_F(AutoSizedButtonSizeTest, iconAndLabel_addInWidthAndCompeteInHeight)
{
    AutoSizedButton* button = make(L"A label");
    const wxSize text = withPadding(button, L"A label");
    button->setEnabledIcon(icon(50, 100), {});
    const int factor = scaleByDpi(1);
    EXPECT_EQ(button->GetMinSize(), wxSize(text.x + 4 + 50 * factor, 100 * factor + 4));
    button->setEnabledIcon(icon(50, 2), {});
    EXPECT_EQ(button->GetMinSize(), wxSize(text.x + 4 + 50 * factor, text.y + 4));
}

TEST_F(AutoSizedButtonSizeTest, icons_countWithTheLargerOfEachDimension)
{
    AutoSizedButton* button = make(wxString());
    button->setEnabledIcon(icon(40, 10), {});
    button->setDisabledIcon(icon(10, 60), {});
    const int factor = scaleByDpi(1);
    EXPECT_EQ(button->GetMinSize(), wxSize(40 * factor + 4, 60 * factor + 4));
}

TEST_F(AutoSizedButtonSizeTest, iconWithSize_isASquareOfThatSizeTimesTheWholeFactor)
{
    AutoSizedButton* button = make(wxString());
    button->setEnabledIcon(icon(50, 100), 16);
    const int length = 16 * scaleByDpi(1);
    EXPECT_EQ(button->GetMinSize(), wxSize(length + 4, length + 4));
}

TEST_F(AutoSizedButtonSizeTest, label_changed_raisesAndLowersTheWidthDownToTheLeast)
{
    AutoSizedButton* button = make(L"OK", 60);
    EXPECT_EQ(button->GetMinSize().x, scaleByDpi(60));
    button->SetLabel(L"A label much longer than sixty pixels");
    EXPECT_EQ(button->GetMinSize().x, withPadding(button, L"A label much longer than sixty pixels").x + 4);
    button->SetLabel(L"OK");
    EXPECT_EQ(button->GetMinSize().x, scaleByDpi(60));
}

TEST_F(AutoSizedButtonSizeTest, changes_leaveTheSizeItHas)
{
    AutoSizedButton* button = make(L"OK");
    button->SetSize(30, 20);
    button->SetLabel(L"A label much longer than thirty pixels");
    button->setEnabledIcon(icon(50, 50), {});
    EXPECT_EQ(button->GetSize(), wxSize(30, 20));
}

TEST_F(AutoSizedButtonTest, invalidIconAndNoSize_areNoIcon)
{
    AutoSizedButton* button = make(wxString());
    button->setEnabledIcon(icon(50, 50), {});
    button->setEnabledIcon(wxBitmap(), 16);
    EXPECT_EQ(button->GetMinSize(), wxSize(4, 4));
    button->setEnabledIcon(wxBitmap(), {});
    button->setDisabledIcon(icon(50, 50), 0);
    button->setEnabledIcon(icon(50, 50), std::numeric_limits<int>::min());
    EXPECT_EQ(button->GetMinSize(), wxSize(4, 4));
}

TEST_F(AutoSizedButtonTest, icons_areShownInTheirStates)
{
    AutoSizedButton* button = make(wxString());
    button->SetSize(20, 20, 60, 60);
    button->setEnabledIcon(icon(20, 20), {});
    showFrame();
    const auto showsIcon = [button] {
        return Tests::pixelAt(Tests::captureClientArea(button), 3, 3) == ICON;
    };
    EXPECT_TRUE(Tests::pumpUntil(showsIcon));
    button->Enable(false);
    EXPECT_TRUE(Tests::pumpUntil([&] { return !showsIcon(); })) << "there is no icon for a disabled button";
    button->setDisabledIcon(icon(10, 10), {});
    EXPECT_TRUE(Tests::pumpUntil(showsIcon));
}

TEST_F(AutoSizedButtonTest, isAPushButtonInTheDefaultSkin)
{
    const AutoSizedButton* button = make(L"OK");
    EXPECT_EQ(button->GetBackgroundColour(),
              wxColour(Wx::GuiSkin::DEFAULT().background.r, Wx::GuiSkin::DEFAULT().background.g,
                       Wx::GuiSkin::DEFAULT().background.b));
    EXPECT_TRUE(button->IsEnabled());
    EXPECT_FALSE(button->borderState().has(OskaBorderState::NO_FRAME));
}

TEST_F(AutoSizedButtonTest, click_tellsTheParentThenTheCallback)
{
    AutoSizedButton* button = make(L"OK");
    std::vector<std::string> reports;
    panel->Bind(wxEVT_BUTTON, [&](wxEvent&) { reports.emplace_back("event"); });
    button->doClick({});
    button->setClickCallback([&] { reports.emplace_back("callback"); });
    button->doClick({});
    EXPECT_EQ(reports, std::vector<std::string>({"event", "event", "callback"}));
}

TEST_F(AutoSizedButtonTest, callbackThatDestroysIt_isSafe)
{
    AutoSizedButton* button = make(L"OK");
    button->setClickCallback([button] { button->Destroy(); });
    button->doClick({});
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(AutoSizedButtonTest, callbackThatDestroysTheParent_isSafe)
{
    auto* inner = new wxPanel(panel);
    auto* button = new AutoSizedButton(inner, L"OK", 0, 0);
    button->setClickCallback([inner] { delete inner; });
    button->doClick({});
    EXPECT_TRUE(panel->GetChildren().empty());
}

TEST_F(AutoSizedButtonTest, changesAndClicks_arePaintedAtOnce)
{
    AutoSizedButton* button = make(L"OK");
    button->SetSize(20, 20, 60, 30);
    showFrame();
    int paints = 0;
    button->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        ++paints;
        event.Skip();
    });
    // No events run in between.
    const auto paintsAtOnce = [&](const std::function<void()>& act) {
        paints = 0;
        act();
        return paints > 0;
    };
    EXPECT_TRUE(paintsAtOnce([&] { button->Enable(false); }));
    EXPECT_TRUE(paintsAtOnce([&] { button->Enable(true); }));
    EXPECT_TRUE(paintsAtOnce([&] { button->setEnabledIcon(icon(8, 8), {}); }));
    EXPECT_TRUE(paintsAtOnce([&] { button->setDisabledIcon(icon(8, 8), 12); }));
    EXPECT_TRUE(paintsAtOnce([&] { button->doClick({}); }));
}

TEST_F(AutoSizedButtonTest, largeIcon_isResizedToAnySizeUpToTheLimit)
{
    AutoSizedButton* button = make(wxString());
    EXPECT_TRUE(button->setEnabledIcon(icon(8, 8), 4097));
    const int length = 4097 * scaleByDpi(1);
    EXPECT_EQ(button->GetMinSize(), wxSize(length + 4, length + 4));
}

TEST_F(AutoSizedButtonTest, iconBeyondTheLimit_isRefusedAndChangesNothing)
{
    AutoSizedButton* button = make(wxString());
    EXPECT_TRUE(button->setEnabledIcon(icon(20, 20), {}));
    EXPECT_TRUE(button->setDisabledIcon(icon(30, 30), {}));
    const wxSize before = button->GetMinSize();
    EXPECT_FALSE(button->setEnabledIcon(icon(8, 8), AutoSizedButton::MAX_ICON_LENGTH + 1));
    EXPECT_FALSE(button->setDisabledIcon(icon(8, 8), std::numeric_limits<int>::max()));
    EXPECT_EQ(button->GetMinSize(), before);
}

TEST_F(AutoSizedButtonTest, callbackThatReplacesItself_isSafe)
{
    AutoSizedButton* button = make(L"OK");
    int calls = 0;
    button->setClickCallback([&, button] {
        button->setClickCallback({});
        ++calls;
    });
    button->doClick({});
    button->doClick({});
    EXPECT_EQ(calls, 1);
}
