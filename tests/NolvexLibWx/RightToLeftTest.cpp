// SPDX-License-Identifier: MIT
// The controls in a window with a layout from right to left, as hosts in Arabic or Hebrew have.
#include "NolvexLibWx/FindWindow.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/detail/ScreenPlaces.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/Tooltip.h"
#include "support/FrameFixture.h"
#include "support/Screen.h"

#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

using namespace Nolvex;
using Wx::Detail::screenRect;
using Wx::Detail::screenToClient;

namespace {

struct RightToLeftTest : Tests::FrameFixture
{
    wxUIActionSimulator mouse;

    RightToLeftTest()
    {
        frame->SetLayoutDirection(wxLayout_RightToLeft);
        panel->SetLayoutDirection(wxLayout_RightToLeft);
    }

    void moveTo(const wxWindow& window)
    {
        const wxSize size = window.GetClientSize();
        mouse.MouseMove(window.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
        Tests::pumpEvents();
    }

    /// Returns the columns from `left` on of what the screen shows of the window.
    static wxImage columns(wxWindow* window, int left, int width)
    {
        const wxImage image = Tests::captureClientArea(window);
        return image.GetSubImage(wxRect(left, 0, width, image.GetHeight()));
    }

    /// Sums the differences of the pixels. A shift by a column, which rounding may cause, does not count.
    static int difference(const wxImage& image, const wxImage& plain)
    {
        int least = std::numeric_limits<int>::max();
        for (int shift = -1; shift <= 1; ++shift) {
            int sum = 0;
            for (int y = 0; y < plain.GetHeight(); ++y) {
                for (int x = 1; x < plain.GetWidth() - 1; ++x)
                    sum += std::abs(image.GetGreen(x + shift, y) - plain.GetGreen(x, y));
            }
            least = std::min(least, sum);
        }
        return least;
    }

    static wxImage turned(const wxImage& image, bool rightLeft, bool upsideDown)
    {
        const wxImage turned = rightLeft ? image.Mirror(true) : image;
        return upsideDown ? turned.Mirror(false) : turned;
    }

    /// True if the image is more like the plain one than any turned image is. Two ways of painting may differ
    /// in the smoothing.
    static bool isReadable(const wxImage& image, const wxImage& plain)
    {
        const int asItIs = difference(image, plain);
        return asItIs < difference(turned(image, true, false), plain) / 2 &&
               asItIs < difference(turned(image, false, true), plain) / 2 &&
               asItIs < difference(turned(image, true, true), plain) / 2;
    }
};

} // namespace

TEST_F(RightToLeftTest, window_countsFromTheRight)
{
    const wxWindow child(panel, wxID_ANY, wxPoint(30, 20), wxSize(100, 50));
    showFrame();
    const wxRect place = screenRect(child);
    EXPECT_EQ(place.GetSize(), wxSize(100, 50));
    EXPECT_EQ(screenRect(*panel).GetRight() - place.GetRight(), 30);
    EXPECT_EQ(screenToClient(child, child.ClientToScreen(wxPoint(7, 8))), wxPoint(7, 8));
}

TEST_F(RightToLeftTest, windowAtAPosition_isFound)
{
    wxWindow child(panel, wxID_ANY, wxPoint(30, 20), wxSize(100, 50));
    showFrame();
    const wxPoint middle = child.ClientToScreen(wxPoint(50, 25));
    EXPECT_EQ(Wx::findWindowByPosition(frame, Wx::toPixel(middle), {}), &child);
}

TEST_F(RightToLeftTest, checkBox_isMirroredButNotItsSigns)
{
    constexpr int BOX = 15; // design units, as the label
    constexpr int LABEL = 18;
    wxPanel other(panel, wxID_ANY, wxPoint(10, 60), wxSize(300, 40));
    other.SetLayoutDirection(wxLayout_LeftToRight);
    auto* mirrored = new Wx::CheckBox(panel, wxID_ANY, L"FL7", wxPoint(10, 10));
    auto* plain = new Wx::CheckBox(&other, wxID_ANY, L"FL7", wxPoint(10, 10));
    for (Wx::CheckBox* box : {mirrored, plain}) {
        box->SetBackgroundColour(wxColour(60, 80, 60)); // The check mark is white.
        box->SetForegroundColour(*wxWHITE);
        box->SetValue(true);
    }
    auto* field = new wxTextCtrl(panel, wxID_ANY, wxString(), wxPoint(10, 120));
    showFrame();
    field->SetFocus(); // so that neither check box shows the mark of the focus
    ASSERT_EQ(mirrored->GetSize(), plain->GetSize());
    const int width = mirrored->GetClientSize().x;
    const int text = mirrored->GetTextExtent(L"FL7").x;
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return isReadable(columns(mirrored, width - LABEL - text, text), columns(plain, LABEL, text));
    })) << "label";
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return isReadable(columns(mirrored, width - BOX + 3, BOX - 6), columns(plain, 3, BOX - 6));
    })) << "check mark";
}

TEST_F(RightToLeftTest, comboBox_opensItsListBelowItselfAndTakesAClick)
{
    auto* box = new Wx::ComboBox(panel, wxID_ANY, 120, {}, {}, true);
    box->setData(Array<Wx::ComboBox::Item>{{L"one", 1, {}}, {L"two", 2, {}}});
    box->selectIndex(0, false);
    box->Move(20, 20);
    showFrame();
    moveTo(*box);
    mouse.MouseClick();
    ASSERT_TRUE(Tests::pumpUntil([&] { return box->isOpen(); }));
    const wxWindowList& windows = wxTopLevelWindows;
    const wxWindow* const list = windows.GetLast()->GetData();
    EXPECT_TRUE(Tests::pumpUntil([&] { return list->GetScreenRect().x == screenRect(*box).x; }))
        << list->GetScreenRect().x << " and " << screenRect(*box).x;
    moveTo(*list);
    EXPECT_TRUE(box->isOpen());
    mouse.MouseMove(wxPoint(screenRect(*box).x + 60, list->GetScreenRect().GetBottom() - 8));
    Tests::pumpEvents();
    mouse.MouseClick();
    EXPECT_TRUE(Tests::pumpUntil([&] { return !box->isOpen(); }));
    EXPECT_EQ(box->getSelectedIndex(), 1);
}

TEST_F(RightToLeftTest, dropdownButton_makesTheChoiceUnderTheMouse)
{
    int chosen = 0;
    const Array<Function<void()>> callbacks{[&] { chosen = 1; }, [&] { chosen = 2; }, [&] { chosen = 3; }};
    auto* button =
        new Wx::DropdownButton(panel, Wx::GuiSkin::DEFAULT(), {1, 2, 3}, {L"one", L"two", L"three"}, {}, {},
                               callbacks, Wx::DropdownButton::Behavior::PUSH, true);
    button->SetSize(wxRect(wxPoint(20, 20), button->GetMinSize()));
    showFrame();
    moveTo(*button);
    mouse.MouseDown();
    const wxWindow* const popup = button->GetChildren().GetFirst()->GetData();
    wxWindow* const last = popup->GetChildren().GetLast()->GetData();
    bool painted = false;
    last->Bind(wxEVT_PAINT, [&painted](wxPaintEvent& event) {
        painted = true;
        event.Skip();
    });
    ASSERT_TRUE(Tests::pumpUntil([&] { return painted; }));
    moveTo(*last);
    mouse.MouseUp();
    EXPECT_TRUE(Tests::pumpUntil([&] { return chosen == 3; })) << chosen;
}

TEST_F(RightToLeftTest, tooltip_appearsWhileTheMouseRestsOnItsOwner)
{
    auto* owner = new wxPanel(panel, wxID_ANY, wxPoint(50, 50), wxSize(200, 100));
    auto* tooltip = new Wx::Tooltip(owner, L"text");
    tooltip->setDelay(60);
    showFrame();
    moveTo(*owner);
    EXPECT_TRUE(Tests::pumpUntil([&] { return tooltip->IsShown(); }));
}
