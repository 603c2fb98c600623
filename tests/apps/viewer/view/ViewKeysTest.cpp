// SPDX-License-Identifier: MIT
// Tests a view by the keyboard alone.
#include "apps/viewer/view/ViewKeys.h"

#include "NolvexLibWx/DpiScaling.h"
#include "support/ViewFixture.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpUntil;
using Tests::typeKey;

namespace {

struct ViewKeysTest : Tests::ViewFixture
{
    void showLarge()
    {
        show(coordinates(3000, 2000));
        view->showActualSize();
        focusView();
        viewChanges = 0;
    }

    wxPoint place() const { return view->pictureArea().GetTopLeft(); }

    /// Types a key and waits until the picture has moved by a distance.
    void expectMovement(int key, const wxPoint& distance) const
    {
        const wxPoint before = place();
        typeKey(key);
        EXPECT_TRUE(pumpUntil([&] { return place() == before + distance; }))
            << key << ": " << place().x - before.x << ", " << place().y - before.y;
    }
};

} // namespace

TEST_F(ViewKeysTest, arrowsAndPages_scroll)
{
    showLarge();
    const int step = Wx::scaleByDpi(16);
    expectMovement(WXK_LEFT, {step, 0});
    expectMovement(WXK_RIGHT, {-step, 0});
    expectMovement(WXK_UP, {0, step});
    expectMovement(WXK_DOWN, {0, -step});
    expectMovement(WXK_PAGEDOWN, {0, step - HEIGHT});
    expectMovement(WXK_PAGEUP, {0, HEIGHT - step});
    EXPECT_EQ(viewChanges, 6);
}

TEST_F(ViewKeysTest, homeAndEnd_showTheCorners)
{
    showLarge();
    typeKey(WXK_HOME);
    EXPECT_TRUE(pumpUntil([&] { return place() == wxPoint(0, 0); }));
    typeKey(WXK_LEFT);
    typeKey(WXK_UP);
    EXPECT_EQ(place(), wxPoint(0, 0));
    typeKey(WXK_END);
    EXPECT_TRUE(pumpUntil([&] { return place() == wxPoint(WIDTH - 3000, HEIGHT - 2000); }));
}

TEST_F(ViewKeysTest, pictureThatIsSeenWhole_doesNotScroll)
{
    show(coordinates(30, 20));
    focusView();
    const wxPoint before = place();
    for (const int key : {WXK_LEFT, WXK_DOWN, WXK_PAGEDOWN, WXK_END, WXK_HOME})
        typeKey(key);
    EXPECT_EQ(place(), before);
    EXPECT_EQ(viewChanges, 0);
}

TEST_F(ViewKeysTest, plusAndMinus_zoomAboutTheMiddle)
{
    showLarge();
    const Pixel middle = pixelUnder({WIDTH / 2, HEIGHT / 2});
    typeKey(WXK_NUMPAD_ADD);
    EXPECT_TRUE(pumpUntil([&] { return view->scale() > 1.4; })) << view->scale();
    wxUIActionSimulator().Text("+");
    EXPECT_TRUE(pumpUntil([&] { return std::abs(view->scale() - 2.0) < 1e-9; })) << view->scale();
    EXPECT_EQ(pixelUnder({WIDTH / 2, HEIGHT / 2}), middle);
    wxUIActionSimulator().Text("-");
    typeKey(WXK_NUMPAD_SUBTRACT);
    EXPECT_TRUE(pumpUntil([&] { return view->scale() == 1.0; })) << view->scale();
}

TEST_F(ViewKeysTest, shiftAndArrows_select)
{
    showLarge();
    typeKey(WXK_RIGHT, wxMOD_SHIFT);
    ASSERT_TRUE(pumpUntil([&] { return view->selection().has_value(); }));
    const wxRect first = *view->selection();
    EXPECT_EQ(first.GetTopLeft(), wxPoint(pixelUnder({75, 50}).x, pixelUnder({75, 50}).y));
    const int step = Wx::scaleByDpi(16);
    typeKey(WXK_RIGHT, wxMOD_SHIFT);
    typeKey(WXK_UP, wxMOD_SHIFT);
    const wxRect second(first.x, first.y, first.width + step, first.height - step);
    EXPECT_TRUE(pumpUntil([&] { return view->selection() == second; }));
    typeKey(WXK_DOWN, wxMOD_SHIFT | wxMOD_CONTROL);
    const wxRect third(second.x, second.y + step, second.width, second.height);
    EXPECT_TRUE(pumpUntil([&] { return view->selection() == third; }));
    EXPECT_EQ(selections.size(), 4u);
    EXPECT_EQ(viewChanges, 0);
}

TEST_F(ViewKeysTest, escape_clearsTheSelectionBeforeItMeansAnythingElse)
{
    showLarge();
    int escapes = 0;
    frame->Bind(wxEVT_CHAR_HOOK, [&](wxKeyEvent& event) {
        escapes += event.GetKeyCode() == WXK_ESCAPE ? 1 : 0;
        event.Skip();
    });
    view->setSelection(wxRect(1, 2, 3, 4));
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !view->selection(); }));
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_FALSE(selections[0]);
    EXPECT_EQ(escapes, 0);
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return escapes == 1; }));
}

TEST_F(ViewKeysTest, altAndArrows_moveTheDivider)
{
    showLarge();
    view->setComparison(coordinates(3000, 2000), 0.5f);
    typeKey(WXK_RIGHT, wxMOD_ALT);
    EXPECT_TRUE(pumpUntil([&] { return view->divider() > 0.51f; }));
    typeKey(WXK_LEFT, wxMOD_ALT);
    typeKey(WXK_LEFT, wxMOD_ALT);
    EXPECT_TRUE(pumpUntil([&] { return view->divider() < 0.49f; }));
    EXPECT_EQ(dividers.size(), 3u);
    EXPECT_EQ(viewChanges, 0);
}

TEST_F(ViewKeysTest, tab_leavesTheView)
{
    auto* other = new wxTextCtrl(panel, wxID_ANY, wxString(), wxPoint(10, 220));
    show(coordinates(30, 20));
    focusView();
    typeKey(WXK_TAB);
    EXPECT_TRUE(pumpUntil([&] { return other->HasFocus(); }));
    typeKey(WXK_TAB);
    EXPECT_TRUE(pumpUntil([&] { return view->HasFocus(); }));
    EXPECT_TRUE(view->hasFocusMark());
    typeKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(pumpUntil([&] { return other->HasFocus(); }));
}

TEST_F(ViewKeysTest, callbackThatDestroysTheView_isSurvived)
{
    showLarge();
    view->onViewChanged = [this] { view->Destroy(); };
    typeKey(WXK_DOWN);
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
}

TEST_F(ViewKeysTest, escapeWhoseCallbackDestroysTheView_isSurvived)
{
    showLarge();
    view->setSelection(wxRect(1, 2, 3, 4));
    view->onSelection = [this](const Optional<wxRect>&) { view->Destroy(); };
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return view == nullptr; }));
}
