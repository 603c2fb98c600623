// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NativeWindows.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "support/FrameFixture.h"

#include <wx/button.h>
#include <wx/dialog.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::getOwnerAsNativeHandle;
using Wx::getScreenRegion;
using Wx::getWindowNativeHandle;
using Wx::setOwnerFromNativeHandle;

namespace {

struct NativeWindowsTest : Tests::FrameFixture
{
    ~NativeWindowsTest() override
    {
        // The owner is removed, because owners destroy the windows that they own.
        setOwnerFromNativeHandle(window, {});
        setOwnerFromNativeHandle(owner, {});
        Tests::destroyNow(other);
    }

    void show() const
    {
        // When the panel has been painted, the frame is placed. wxWidgets hears of the frame's size a little
        // later.
        showFrame();
        EXPECT_TRUE(Tests::pumpUntil(
            [this] { return getScreenRegion(window) == Wx::toBucket(frame->GetScreenRect()); }));
    }

    wxFrame* other = new wxFrame(nullptr, wxID_ANY, "other");
    WindowHandle window = getWindowNativeHandle(frame);
    WindowHandle owner = getWindowNativeHandle(other);
};

/// Returns the handle of a window that no longer exists.
WindowHandle staleHandle()
{
    auto* gone = new wxFrame(nullptr, wxID_ANY, "gone");
    const WindowHandle handle = getWindowNativeHandle(gone);
    Tests::destroyNow(gone);
    return handle;
}

} // namespace

TEST_F(NativeWindowsTest, handle_isTheToolkitsOwn)
{
    EXPECT_TRUE(window);
    EXPECT_EQ(window.native, static_cast<const void*>(frame->GetHandle()));
    EXPECT_EQ(getWindowNativeHandle(panel).native, static_cast<const void*>(panel->GetHandle()));
    EXPECT_EQ(getWindowNativeHandle(nullptr), WindowHandle());
}

TEST_F(NativeWindowsTest, screenRegion_ofATopLevelWindow_hasItsFrame)
{
    show();
    EXPECT_EQ(getScreenRegion(window), Wx::toBucket(frame->GetScreenRect()));
    EXPECT_GT(getScreenRegion(window).height(), frame->GetClientSize().y);
}

TEST_F(NativeWindowsTest, screenRegion_followsTheWindow)
{
    show();
    frame->SetPosition(wxPoint(200, 150));
    EXPECT_TRUE(Tests::pumpUntil([this] { return getScreenRegion(window).min == Pixel{200, 150}; }));
}

TEST_F(NativeWindowsTest, screenRegion_ofAHiddenWindow_isItsPlaceOfLastTime)
{
    show();
    frame->Hide();
    Tests::pumpEvents(50);
    frame->SetPosition(wxPoint(230, 140));
    EXPECT_EQ(getScreenRegion(window).min, (Pixel{230, 140}));
    EXPECT_GE(getScreenRegion(window).width(), frame->GetClientSize().x);
    EXPECT_GE(getScreenRegion(window).height(), frame->GetClientSize().y);
}

TEST_F(NativeWindowsTest, screenRegion_ofChildren_isTheirOwn)
{
    auto* inner = new wxPanel(panel, wxID_ANY, wxPoint(20, 30), wxSize(100, 80));
    auto* button = new wxButton(inner, wxID_ANY, "press", wxPoint(5, 7), wxSize(80, 60));
    show();
    for (const wxWindow* child :
         {static_cast<wxWindow*>(panel), static_cast<wxWindow*>(inner), static_cast<wxWindow*>(button)}) {
        const Pixel start = Wx::toPixel(child->GetParent()->ClientToScreen(child->GetPosition()));
        EXPECT_EQ(getScreenRegion(getWindowNativeHandle(child)),
                  (Bucket{start, start + Wx::toPixel(child->GetSize())}))
            << child->GetName();
    }
}

TEST_F(NativeWindowsTest, screenRegion_ofNoWindow_isEmpty)
{
    EXPECT_EQ(getScreenRegion({}), Bucket());
    EXPECT_EQ(getScreenRegion(staleHandle()), Bucket());
}

TEST_F(NativeWindowsTest, screenRegion_beforeTheFirstShow_isEmptyOrWhereItWillBe)
{
    for (wxWindow* hidden : {static_cast<wxWindow*>(frame), static_cast<wxWindow*>(panel)}) {
        const Bucket region = getScreenRegion(getWindowNativeHandle(hidden));
        EXPECT_TRUE(region == Bucket() || region == Wx::toBucket(hidden->GetScreenRect()));
    }
}

TEST_F(NativeWindowsTest, screenRegion_ofAStaleChildHandle_isEmpty)
{
    show();
    auto* child = new wxPanel(panel);
    const WindowHandle handle = getWindowNativeHandle(child);
    child->Destroy();
    EXPECT_EQ(getScreenRegion(handle), Bucket());
}

TEST_F(NativeWindowsTest, owner_isNoneAtFirst)
{
    EXPECT_EQ(getOwnerAsNativeHandle(window), WindowHandle());
}

TEST_F(NativeWindowsTest, setOwner_isWhatOwnerReturns)
{
    EXPECT_EQ(setOwnerFromNativeHandle(window, owner), window);
    EXPECT_EQ(getOwnerAsNativeHandle(window), owner);
    EXPECT_EQ(getOwnerAsNativeHandle(owner), WindowHandle());
    EXPECT_EQ(frame->GetParent(), nullptr) << "the toolkit's parents are another matter";
}

TEST_F(NativeWindowsTest, setOwner_worksOnShownWindows)
{
    show();
    bool shown = false;
    other->Bind(wxEVT_PAINT, [&shown](wxPaintEvent& event) {
        shown = true;
        event.Skip();
    });
    other->Show();
    ASSERT_TRUE(Tests::pumpUntil([&shown] { return shown; }));
    setOwnerFromNativeHandle(window, owner);
    Tests::pumpEvents(50);
    EXPECT_EQ(getOwnerAsNativeHandle(window), owner);
}

TEST_F(NativeWindowsTest, setOwner_null_makesUnowned)
{
    setOwnerFromNativeHandle(window, owner);
    EXPECT_EQ(setOwnerFromNativeHandle(window, {}), window);
    EXPECT_EQ(getOwnerAsNativeHandle(window), WindowHandle());
}

TEST_F(NativeWindowsTest, setOwner_replacesTheOwner)
{
    auto* third = new wxFrame(nullptr, wxID_ANY, "third");
    setOwnerFromNativeHandle(window, owner);
    setOwnerFromNativeHandle(window, getWindowNativeHandle(third));
    EXPECT_EQ(getOwnerAsNativeHandle(window), getWindowNativeHandle(third));
    setOwnerFromNativeHandle(window, {});
    Tests::destroyNow(third);
}

TEST_F(NativeWindowsTest, owner_ofADialog_isTheToolkitsParent)
{
    show(); // the dialog of a hidden window would have no owner
    auto* dialog = new wxDialog(frame, wxID_ANY, "dialog");
    EXPECT_EQ(getOwnerAsNativeHandle(getWindowNativeHandle(dialog)), window);
}

TEST_F(NativeWindowsTest, setOwner_refusesCircles)
{
    setOwnerFromNativeHandle(window, window);
    EXPECT_EQ(getOwnerAsNativeHandle(window), WindowHandle());

    auto* third = new wxFrame(nullptr, wxID_ANY, "third");
    const WindowHandle last = getWindowNativeHandle(third);
    setOwnerFromNativeHandle(window, owner);
    setOwnerFromNativeHandle(last, window);
    EXPECT_EQ(setOwnerFromNativeHandle(owner, last), owner);
    EXPECT_EQ(getOwnerAsNativeHandle(owner), WindowHandle());
    EXPECT_EQ(getOwnerAsNativeHandle(last), window) << "and nothing else has changed";
    setOwnerFromNativeHandle(last, {});
    Tests::destroyNow(third);
}

TEST_F(NativeWindowsTest, handlesOfNoWindow_haveNoOwnerAndGetNone)
{
    const WindowHandle stale = staleHandle();
    for (const WindowHandle none : {WindowHandle(), stale}) {
        EXPECT_EQ(getOwnerAsNativeHandle(none), WindowHandle());
        EXPECT_EQ(setOwnerFromNativeHandle(none, owner), none);
        EXPECT_EQ(getOwnerAsNativeHandle(none), WindowHandle());
    }
}

TEST_F(NativeWindowsTest, setOwner_thatIsGone_keepsTheOwner)
{
    setOwnerFromNativeHandle(window, owner);
    EXPECT_EQ(setOwnerFromNativeHandle(window, staleHandle()), window);
    EXPECT_EQ(getOwnerAsNativeHandle(window), owner);
}

TEST_F(NativeWindowsTest, windowBeingDestroyed_mayBeAsked)
{
    auto* going = new wxFrame(nullptr, wxID_ANY, "going");
    const WindowHandle handle = getWindowNativeHandle(going);
    setOwnerFromNativeHandle(handle, owner);
    bool asked = false;
    going->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent& event) {
        [[maybe_unused]] const Bucket region = getScreenRegion(handle);
        setOwnerFromNativeHandle(handle, {});
        asked = getOwnerAsNativeHandle(handle) == WindowHandle();
        event.Skip();
    });
    going->Destroy();
    EXPECT_TRUE(Tests::pumpUntil([&] { return asked; }));
}
