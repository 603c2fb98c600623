// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"
#include "support/TickSkin.h"

#include <wx/button.h>
#include <wx/sizer.h>

using namespace Nolvex;
using Wx::CollapsiblePanel;

namespace {

/// A folded panel between two native buttons.
struct CollapsiblePanelKeyTest : Tests::FrameFixture
{
    wxButton* above = new wxButton(panel, wxID_ANY, "above");
    CollapsiblePanel* folding = new CollapsiblePanel(panel, Tests::tickSkin(), L"Details",
                                                     new Wx::StaticText(panel, wxID_ANY, L"Content"));
    wxButton* below = new wxButton(panel, wxID_ANY, "below");
    wxWindow* tick = nullptr;

    CollapsiblePanelKeyTest()
    {
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* child :
             {static_cast<wxWindow*>(above), static_cast<wxWindow*>(folding), static_cast<wxWindow*>(below)})
            sizer->Add(child);
        panel->SetSizer(sizer);
        panel->Layout();
        for (wxWindow* child : folding->GetChildren()) {
            if (dynamic_cast<CollapsiblePanel::Tick*>(child) != nullptr)
                tick = child;
        }
        showFrame();
        above->SetFocus();
        EXPECT_TRUE(hasFocus(above));
    }

    static bool hasFocus(const wxWindow* window)
    {
        return Tests::pumpUntil([window] { return wxWindow::FindFocus() == window; }, 2000);
    }

    bool isCollapsedSoon(bool collapsed) const
    {
        return Tests::pumpUntil([this, collapsed] { return folding->isCollapsed() == collapsed; }, 2000);
    }
};

} // namespace

TEST_F(CollapsiblePanelKeyTest, tab_leadsToTheTriangleAndOn)
{
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(tick));
    Tests::typeKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(below));
    Tests::typeKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(hasFocus(tick));
}

TEST_F(CollapsiblePanelKeyTest, spaceAndEnter_toggleOnceEach)
{
    int toggles = 0;
    folding->setToggleCallback([&toggles](bool) { ++toggles; });
    tick->SetFocus();
    ASSERT_TRUE(hasFocus(tick));
    Tests::typeKey(WXK_SPACE);
    EXPECT_TRUE(isCollapsedSoon(false));
    Tests::typeKey(WXK_RETURN);
    EXPECT_TRUE(isCollapsedSoon(true));
    EXPECT_EQ(toggles, 2);
    EXPECT_EQ(wxWindow::FindFocus(), tick);
}

TEST_F(CollapsiblePanelKeyTest, focus_isSeenAsDotsAroundTheTriangle)
{
    const RgbBytes dot = Tests::tickSkin().text;
    const int right = tick->GetClientSize().x - 1;
    const auto cornerIsDotted = [this, dot, right] {
        const wxImage image = Tests::captureClientArea(tick);
        return Tests::pixelAt(image, 0, 0) == dot && Tests::pixelAt(image, right, 0) == dot &&
               Tests::pixelAt(image, right, right) == dot && Tests::pixelAt(image, right, 1) != dot;
    };
    EXPECT_FALSE(cornerIsDotted());
    tick->SetFocus();
    EXPECT_TRUE(Tests::pumpUntil(cornerIsDotted));
    below->SetFocus();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !cornerIsDotted(); }));
}

TEST_F(CollapsiblePanelKeyTest, otherKeys_toggleNothing)
{
    tick->SetFocus();
    ASSERT_TRUE(hasFocus(tick));
    for (const int key : {int('A'), int(WXK_DOWN), int(WXK_DELETE)})
        Tests::typeKey(key);
    Tests::typeKey(WXK_SPACE, wxMOD_CONTROL);
    EXPECT_TRUE(folding->isCollapsed());
}

TEST_F(CollapsiblePanelKeyTest, keyWhoseCallbackDestroysThePanel_isSurvived)
{
    folding->setToggleCallback([this](bool) { folding->Destroy(); });
    tick->SetFocus();
    ASSERT_TRUE(hasFocus(tick));
    const wxWeakRef<wxWindow> gone(folding);
    Tests::typeKey(WXK_SPACE);
    EXPECT_TRUE(Tests::pumpUntil([&gone] { return !gone; }));
}
