// SPDX-License-Identifier: MIT
#include "NolvexLibWx/FindWindow.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/Events.h"

#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::findWindowByPosition;
using Wx::FindWindowFlag;

namespace {

wxPanel* addPanel(wxWindow* parent, const wxRect& rect)
{
    return new wxPanel(parent, wxID_ANY, rect.GetTopLeft(), rect.GetSize());
}

/// A frame filled by a root panel of 400 by 300 pixels.
class FindWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_frame = new wxFrame(nullptr, wxID_ANY, "find", wxPoint(60, 60));
        m_root = new wxPanel(m_frame);
        m_frame->SetClientSize(400, 300);
        m_root->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            m_painted = true;
            event.Skip();
        });
        m_frame->Show();
        // When the panel has been painted, the window manager has placed the frame, and the rectangles no
        // longer change.
        ASSERT_TRUE(Tests::pumpUntil([this] { return m_painted && m_root->GetSize() == wxSize(400, 300); }));
        Tests::pumpEvents(50);
    }

    void TearDown() override { Tests::destroyNow(m_frame); }

    Pixel onScreen(int x, int y) const { return Wx::toPixel(m_root->ClientToScreen(wxPoint(x, y))); }

    wxFrame* m_frame = nullptr;
    wxPanel* m_root = nullptr;
    bool m_painted = false;
};

} // namespace

TEST_F(FindWindowTest, byPosition_findsTheDeepestWindow)
{
    wxPanel* outer = addPanel(m_root, {20, 20, 200, 200});
    wxPanel* inner = addPanel(outer, {30, 30, 50, 50});
    wxPanel* innermost = addPanel(inner, {10, 10, 10, 10});
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(65, 65), {}), innermost);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(55, 55), {}), inner);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(25, 25), {}), outer);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(5, 5), {}), m_root);
    EXPECT_EQ(findWindowByPosition(m_frame, onScreen(65, 65), {}), innermost);
}

TEST_F(FindWindowTest, byPosition_takesRectanglesHalfOpen)
{
    wxPanel* child = addPanel(m_root, {20, 20, 40, 40});
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(20, 20), {}), child);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(59, 59), {}), child);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(60, 59), {}), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(19, 20), {}), m_root);
}

TEST_F(FindWindowTest, byPosition_outsideEverything_isNull)
{
    addPanel(m_root, {20, 20, 40, 40});
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(-200, -200), {}), nullptr);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(400, 10), {}), nullptr);
}

TEST_F(FindWindowTest, byPosition_nullRoot_isNull)
{
    EXPECT_EQ(findWindowByPosition(nullptr, {0, 0}, {}), nullptr);
}

TEST_F(FindWindowTest, byPosition_outsideTheRoot_findsAChildThatReachesThere)
{
    wxPanel* root = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* child = addPanel(root, {80, 80, 100, 100});
    EXPECT_EQ(findWindowByPosition(root, onScreen(150, 150), {}), child);
}

TEST_F(FindWindowTest, byPosition_overlappingSiblings_theFirstInTheListWins)
{
    wxPanel* first = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* second = addPanel(m_root, {60, 60, 100, 100});
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(80, 80), {}), first);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(140, 140), {}), second);
}

TEST_F(FindWindowTest, byPosition_firstSiblingWins_overTheSecondOnesChildren)
{
    wxPanel* first = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* second = addPanel(m_root, {20, 20, 100, 100});
    addPanel(second, {0, 0, 100, 100});
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(50, 50), {}), first);
}

TEST_F(FindWindowTest, byPosition_hiddenParent_hidesItsSubtree)
{
    wxPanel* parent = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* child = addPanel(parent, {10, 10, 50, 50});
    parent->Hide();
    ASSERT_TRUE(child->IsShown());
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), {}), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), child);
}

TEST_F(FindWindowTest, byPosition_disabledParent_hidesItsSubtree)
{
    wxPanel* parent = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* child = addPanel(parent, {10, 10, 50, 50});
    parent->Disable();
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), {}), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), child);
}

TEST_F(FindWindowTest, byPosition_hiddenAndDisabled_needsBothFlags)
{
    wxPanel* child = addPanel(m_root, {20, 20, 100, 100});
    child->Disable();
    child->Hide();
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_HIDDEN), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40), FindWindowFlag::INCLUDE_DISABLED), m_root);
    EXPECT_EQ(findWindowByPosition(m_root, onScreen(40, 40),
                                   {FindWindowFlag::INCLUDE_HIDDEN, FindWindowFlag::INCLUDE_DISABLED}),
              child);
}

TEST_F(FindWindowTest, byPosition_hiddenRoot_isNoResult)
{
    wxPanel* child = addPanel(m_root, {20, 20, 100, 100});
    child->Hide();
    EXPECT_EQ(findWindowByPosition(child, onScreen(40, 40), {}), nullptr);
}

TEST_F(FindWindowTest, flags_haveTheirBits)
{
    EXPECT_EQ(Flags<FindWindowFlag>(FindWindowFlag::INCLUDE_HIDDEN).bits(), 1u);
    EXPECT_EQ(Flags<FindWindowFlag>(FindWindowFlag::INCLUDE_DISABLED).bits(), 2u);
}

TEST_F(FindWindowTest, byNativeHandle_findsAnyWindowOfTheTree)
{
    wxPanel* child = addPanel(m_root, {20, 20, 100, 100});
    wxPanel* hidden = addPanel(child, {10, 10, 50, 50});
    hidden->Hide();
    hidden->Disable();
    for (wxWindow* window :
         {static_cast<wxWindow*>(m_root), static_cast<wxWindow*>(child), static_cast<wxWindow*>(hidden)})
        EXPECT_EQ(Wx::findWindowByNativeHandle(m_root, Wx::getWindowNativeHandle(window)), window);
}

TEST_F(FindWindowTest, byNativeHandle_ofNoneOrOutsideTheTree_isNull)
{
    wxPanel* child = addPanel(m_root, {20, 20, 100, 100});
    EXPECT_EQ(Wx::findWindowByNativeHandle(m_root, {}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(child, Wx::getWindowNativeHandle(m_root)), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(nullptr, Wx::getWindowNativeHandle(m_root)), nullptr);
}

TEST_F(FindWindowTest, byNativeHandle_null_doesNotFindAWindowNotYetCreated)
{
    auto* blank = new wxFrame;
    EXPECT_EQ(Wx::findWindowByNativeHandle(blank, {}), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
    delete blank;
}

TEST_F(FindWindowTest, topLevelForNativeHandle_findsFramesAndDialogs)
{
    auto* dialog = new wxDialog(m_frame, wxID_ANY, "dialog");
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(m_frame)), m_frame);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(dialog)), dialog);
}

TEST_F(FindWindowTest, topLevelForNativeHandle_ofAChildOrNone_isNull)
{
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(Wx::getWindowNativeHandle(m_root)), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
}

TEST_F(FindWindowTest, topMostParent_followsParentsToTheEnd)
{
    auto* dialog = new wxDialog(m_frame, wxID_ANY, "dialog");
    wxPanel* inner = addPanel(dialog, {0, 0, 10, 10});
    EXPECT_EQ(Wx::topMostParent(inner), m_frame);
    EXPECT_EQ(Wx::topMostParent(m_root), m_frame);
    EXPECT_EQ(Wx::topMostParent(m_frame), m_frame);
    EXPECT_EQ(Wx::topMostParent(nullptr), nullptr);
}
