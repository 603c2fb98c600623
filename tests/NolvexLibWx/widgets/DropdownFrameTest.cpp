// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/DropdownFrame.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::DropdownFrame;

namespace {

static_assert(std::is_base_of_v<wxFrame, DropdownFrame>);

constexpr RgbBytes GREEN{0, 255, 0};
const wxSize LIST_SIZE(120, 60);

// A window that fulfils the requirements for the contents of a drop-down frame.
class Contents : public wxWindow
{
public:
    explicit Contents(wxWindow* parent) : wxWindow(parent, wxID_ANY)
    {
        wxWindow::SetBackgroundColour(wxColour(GREEN.r, GREEN.g, GREEN.b));
    }

    bool AcceptsFocus() const override { return false; }
};

struct DropdownFrameTest : Tests::FrameFixture
{
    wxPanel* between = new wxPanel(panel, wxID_ANY, wxPoint(10, 60), wxSize(300, 180));
    wxWeakRef<wxPanel> owner = new wxPanel(between, wxID_ANY, wxPoint(20, 10), wxSize(100, 24));
    wxWeakRef<DropdownFrame> dropdown = new DropdownFrame(owner);
    Contents* contents = new Contents(dropdown);

    DropdownFrameTest()
    {
        dropdown->SetClientSize(LIST_SIZE);
        contents->SetSize(LIST_SIZE);
    }

    wxPoint below() const { return owner->GetScreenPosition() + wxPoint(0, owner->GetSize().y); }

    bool isSeen() const { return Tests::pixelAt(Tests::captureClientArea(contents), 5, 5) == GREEN; }

    /// Opens the frame and waits until the screen shows it.
    void open() const
    {
        dropdown->open();
        ASSERT_TRUE(dropdown->IsShown());
        ASSERT_TRUE(Tests::pumpUntil([this] { return isSeen(); }));
    }

    bool hides() const
    {
        return Tests::pumpUntil([this] { return !dropdown->IsShown(); }, 2000);
    }
};

} // namespace

TEST_F(DropdownFrameTest, construction_makesAHiddenFrameOfThatStyle)
{
    EXPECT_FALSE(dropdown->IsShown());
    EXPECT_EQ(dropdown->GetParent(), owner);
    EXPECT_EQ(dropdown->GetWindowStyleFlag(), wxBORDER_NONE | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR);
    const auto* other = new DropdownFrame(owner, wxBORDER_SIMPLE, L"Some name");
    EXPECT_EQ(other->GetWindowStyleFlag(), wxBORDER_SIMPLE | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR);
    EXPECT_EQ(other->GetName(), L"Some name");
}

TEST_F(DropdownFrameTest, open_showsItDirectlyBelowItsOwner)
{
    showFrame();
    open();
    EXPECT_EQ(dropdown->GetScreenPosition(), below());
    EXPECT_EQ(contents->GetScreenPosition(), below());
    EXPECT_EQ(dropdown->GetSize(), LIST_SIZE);
}

TEST_F(DropdownFrameTest, simpleBorder_surroundsTheContents)
{
    dropdown->Destroy();
    dropdown = new DropdownFrame(owner, wxBORDER_SIMPLE);
    contents = new Contents(dropdown);
    dropdown->SetClientSize(LIST_SIZE);
    contents->SetSize(LIST_SIZE);
    showFrame();
    open();
    EXPECT_EQ(dropdown->GetClientSize(), LIST_SIZE);
    EXPECT_EQ(dropdown->GetSize(), LIST_SIZE + wxSize(2, 2));
    EXPECT_EQ(dropdown->GetScreenPosition(), below());
    EXPECT_EQ(contents->GetScreenPosition(), below() + wxPoint(1, 1));
    const auto hasBorder = [this] {
        const BitmapImpl<Rgb> image = Wx::getScreenRegionColors(
            {Wx::toPixel(below()), Wx::toPixel(below()) + Wx::toPixel(dropdown->GetSize())});
        const Rgb border = image.at(0, 0);
        return border.g < 0.7f && image.at(60, 0) == border && image.at(121, 61) == border &&
               image.at(0, 30) == border && image.at(1, 1).g == 1 && image.at(120, 60).g == 1;
    };
    EXPECT_TRUE(Tests::pumpUntil(hasBorder, 2000));
}

TEST_F(DropdownFrameTest, atTheBottomOfTheMonitor_opensAbove)
{
    showFrame();
    const wxRect area = wxDisplay(0U).GetClientArea();
    const auto openAt = [&](int y) {
        dropdown->Hide();
        owner->Move(between->ScreenToClient(wxPoint(area.x + 50, y)));
        dropdown->open();
        return dropdown->GetScreenPosition().y;
    };
    const int height = owner->GetSize().y + LIST_SIZE.y;
    const int bottom = area.GetBottom() + 1;
    EXPECT_EQ(openAt(bottom - height), bottom - LIST_SIZE.y) << "there is just enough room below";
    EXPECT_EQ(openAt(bottom - height + 1), bottom - height + 1 - LIST_SIZE.y);
    dropdown->SetClientSize(LIST_SIZE.x, area.height);
    EXPECT_EQ(openAt(bottom - height), bottom - LIST_SIZE.y) << "there is no room above either";
}

TEST_F(DropdownFrameTest, open_placesItBeforeItIsShown)
{
    showFrame();
    Array<wxPoint> places;
    dropdown->Bind(wxEVT_SHOW, [&](wxShowEvent&) { places.push_back(dropdown->GetPosition()); });
    open();
    EXPECT_EQ(places, Array<wxPoint>({below()}));
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownFrameTest, open_leftOfAllMonitors_isExact)
{
    showFrame();
    open();
    dropdown->Hide();
    owner->Move(between->ScreenToClient(wxPoint(-1, -1 - owner->GetSize().y)));
    dropdown->open();
    EXPECT_EQ(dropdown->GetPosition(), wxPoint(-1, -1));
}

TEST_F(DropdownFrameTest, open_leavesFocusAndKeysWithTheOwnersFrame)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY);
    showFrame();
    text->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasFocus() && frame->IsActive(); }));
    int lost = 0;
    text->Bind(wxEVT_KILL_FOCUS, [&](wxFocusEvent& event) {
        ++lost;
        event.Skip();
    });
    open();
    Tests::typeKey('A');
    EXPECT_TRUE(Tests::pumpUntil([&] { return !text->IsEmpty(); }, 2000));
    EXPECT_TRUE(text->HasFocus());
    EXPECT_TRUE(frame->IsActive());
    EXPECT_EQ(lost, 0);
    EXPECT_FALSE(dropdown->IsActive());
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownFrameTest, ownerThatTakesTheFocus_stillTakesIt)
{
    new wxTextCtrl(dropdown, wxID_ANY, {}, wxPoint(60, 30));
    showFrame();
    int keys = 0;
    owner->Bind(wxEVT_KEY_DOWN, [&](wxKeyEvent&) { ++keys; });
    for (const bool opened : {false, true}) {
        if (opened)
            open();
        owner->SetFocus();
        EXPECT_TRUE(Tests::pumpUntil([this] { return owner->HasFocus() && frame->IsActive(); }, 2000));
        keys = 0;
        Tests::typeKey('X');
        EXPECT_TRUE(Tests::pumpUntil([&] { return keys > 0; }, 2000)) << "opened: " << opened;
    }
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownFrameTest, clickInside_isTheContentsAndLeavesTheFocus)
{
    auto* text = new wxTextCtrl(panel, wxID_ANY);
    showFrame();
    text->SetFocus();
    ASSERT_TRUE(Tests::pumpUntil([&] { return text->HasFocus() && frame->IsActive(); }));
    open();
    wxPoint clicked;
    contents->Bind(wxEVT_LEFT_UP, [&](wxMouseEvent& event) { clicked = event.GetPosition(); });
    Tests::clickAt(contents, {30, 40});
    EXPECT_EQ(clicked, wxPoint(30, 40));
    EXPECT_TRUE(text->HasFocus());
    EXPECT_TRUE(frame->IsActive());
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownFrameTest, raise_neitherShowsNorActivatesIt)
{
    showFrame();
    dropdown->Raise();
    Tests::pumpEvents();
    EXPECT_FALSE(dropdown->IsShown());
    EXPECT_FALSE(isSeen());
    open();
    const bool wasActive = frame->IsActive();
    dropdown->Raise();
    Tests::pumpEvents(100);
    EXPECT_EQ(frame->IsActive(), wasActive);
}

// The display server reports later that the window has appeared.
TEST_F(DropdownFrameTest, hiddenAtOnce_staysHiddenAndOpensAgain)
{
    showFrame();
    dropdown->open();
    dropdown->Hide();
    EXPECT_FALSE(Tests::pumpUntil([this] { return dropdown->IsShown(); }, 300));
    EXPECT_FALSE(isSeen());
    open();
    dropdown->Hide();
    EXPECT_TRUE(Tests::pumpUntil([this] { return !isSeen(); }));
}

TEST_F(DropdownFrameTest, openAndHide_repaintTheOwner)
{
    showFrame();
    int paints = 0;
    owner->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        ++paints;
        event.Skip();
    });
    open();
    EXPECT_TRUE(Tests::pumpUntil([&] { return paints > 0; }, 2000));
    paints = 0;
    dropdown->Hide();
    EXPECT_TRUE(Tests::pumpUntil([&] { return paints > 0; }, 2000));
    destroyFrame(); // while the variables of the handlers exist
}

TEST_F(DropdownFrameTest, close_onlyHidesIt)
{
    showFrame();
    open();
    dropdown->Close(true);
    Tests::pumpEvents();
    ASSERT_TRUE(dropdown);
    EXPECT_FALSE(dropdown->IsShown());
    open();
}

TEST_F(DropdownFrameTest, ownerHidden_hidesIt)
{
    showFrame();
    open();
    owner->Hide();
    EXPECT_TRUE(hides());
}

TEST_F(DropdownFrameTest, parentHidden_hidesIt)
{
    showFrame();
    open();
    between->Hide();
    EXPECT_TRUE(hides());
}

TEST_F(DropdownFrameTest, topLevelHidden_hidesIt)
{
    showFrame();
    open();
    frame->Hide();
    EXPECT_TRUE(hides());
}

TEST_F(DropdownFrameTest, topLevelMinimised_hidesIt)
{
    showFrame();
    open();
    frame->Iconize();
    EXPECT_TRUE(hides());
    frame->Iconize(false);
}

TEST_F(DropdownFrameTest, parentDisabled_hidesIt)
{
    showFrame();
    open();
    between->Disable();
    EXPECT_TRUE(hides());
}

TEST_F(DropdownFrameTest, topLevelDisabled_hidesIt)
{
    showFrame();
    open();
    frame->Disable();
    EXPECT_TRUE(hides());
}

TEST_F(DropdownFrameTest, ownerDisabledItself_leavesItOpen)
{
    showFrame();
    open();
    owner->Disable();
    Tests::pumpEvents(100);
    EXPECT_TRUE(dropdown->IsShown());
}

TEST_F(DropdownFrameTest, modalDialog_hidesIt)
{
    showFrame();
    open();
    wxDialog dialog(frame, wxID_ANY, L"modal");
    bool shownBeside = true;
    dialog.Bind(wxEVT_INIT_DIALOG, [&](wxInitDialogEvent&) {
        shownBeside = dropdown->IsShown();
        dialog.CallAfter([&dialog] { dialog.EndModal(wxID_OK); });
    });
    EXPECT_EQ(dialog.ShowModal(), wxID_OK);
    EXPECT_FALSE(shownBeside);
    EXPECT_FALSE(dropdown->IsShown());
}

TEST_F(DropdownFrameTest, owner_thatCannotBeSeenOrUsed_opensNothing)
{
    dropdown->open();
    EXPECT_FALSE(dropdown->IsShown()) << "the top level is hidden";
    showFrame();
    owner->Hide();
    dropdown->open();
    EXPECT_FALSE(dropdown->IsShown());
    owner->Show();
    between->Disable();
    dropdown->open();
    EXPECT_FALSE(dropdown->IsShown());
    between->Enable();
    open();
}

TEST_F(DropdownFrameTest, movedOwner_takesItAlong)
{
    showFrame();
    open();
    owner->Move(60, 40);
    EXPECT_TRUE(Tests::pumpUntil([this] { return dropdown->GetScreenPosition() == below(); }, 2000));
    EXPECT_TRUE(dropdown->IsShown());
}

TEST_F(DropdownFrameTest, reparentedOwner_opensItInTheNewFrame)
{
    showFrame();
    open();
    dropdown->Hide();
    auto* other = new wxFrame(nullptr, wxID_ANY, L"other", wxPoint(560, 300), wxSize(300, 200));
    auto* place = new wxPanel(other);
    owner->Reparent(place);
    destroyFrame();
    other->Show();
    other->Raise();
    ASSERT_TRUE(Tests::pumpUntil([&] { return owner->IsShownOnScreen(); }));
    Tests::pumpEvents(200);
    open();
    EXPECT_EQ(dropdown->GetScreenPosition(), below());
    Tests::destroyNow(other);
    EXPECT_FALSE(dropdown);
}

TEST_F(DropdownFrameTest, destroyedOwner_takesItAlong)
{
    showFrame();
    open();
    owner->Destroy();
    EXPECT_FALSE(dropdown);
}

TEST_F(DropdownFrameTest, destroyedAsAChild_isGoneAtOnce)
{
    showFrame();
    open();
    owner->DestroyChildren();
    EXPECT_FALSE(dropdown);
    Tests::pumpEvents();
}
