// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NativeWindows.h"

#include "NolvexLibWx/GeometryConversions.h"
#include "support/Events.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Wx::getOwnerAsNativeHandle;
using Wx::getScreenRegion;
using Wx::getWindowNativeHandle;
using Wx::setOwnerFromNativeHandle;

namespace {

class NativeWindowsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_frame = new wxFrame(nullptr, wxID_ANY, "window", wxPoint(90, 70), wxSize(320, 240));
        m_other = new wxFrame(nullptr, wxID_ANY, "other");
        m_panel = new wxPanel(m_frame);
        m_window = getWindowNativeHandle(m_frame);
        m_owner = getWindowNativeHandle(m_other);
    }

    void TearDown() override
    {
        // The owner is removed, because owners destroy the windows that they own.
        setOwnerFromNativeHandle(m_window, {});
        setOwnerFromNativeHandle(m_owner, {});
        Tests::destroyNow(m_frame);
        Tests::destroyNow(m_other);
    }

    void show()
    {
        m_panel->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            m_painted = true;
            event.Skip();
        });
        m_frame->Show();
        // When the panel has been painted, the frame is placed. wxWidgets hears of the frame's size a little
        // later.
        ASSERT_TRUE(Tests::pumpUntil([this] {
            return m_painted && getScreenRegion(m_window) == Wx::toBucket(m_frame->GetScreenRect());
        }));
        Tests::pumpEvents(50);
    }

    wxFrame* m_frame = nullptr;
    wxFrame* m_other = nullptr;
    wxPanel* m_panel = nullptr;
    bool m_painted = false;
    WindowHandle m_window;
    WindowHandle m_owner;
};

/// Returns the handle of a window that no longer exists.
WindowHandle staleHandle()
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "gone");
    const WindowHandle handle = getWindowNativeHandle(frame);
    Tests::destroyNow(frame);
    return handle;
}

} // namespace

TEST_F(NativeWindowsTest, handle_isTheToolkitsOwn)
{
    EXPECT_TRUE(m_window);
    EXPECT_EQ(m_window.native, static_cast<const void*>(m_frame->GetHandle()));
    EXPECT_EQ(getWindowNativeHandle(m_panel).native, static_cast<const void*>(m_panel->GetHandle()));
    EXPECT_EQ(getWindowNativeHandle(nullptr), WindowHandle());
}

TEST_F(NativeWindowsTest, screenRegion_ofATopLevelWindow_hasItsFrame)
{
    show();
    EXPECT_EQ(getScreenRegion(m_window), Wx::toBucket(m_frame->GetScreenRect()));
    EXPECT_GT(getScreenRegion(m_window).height(), m_frame->GetClientSize().y);
}

TEST_F(NativeWindowsTest, screenRegion_followsTheWindow)
{
    show();
    m_frame->SetPosition(wxPoint(200, 150));
    EXPECT_TRUE(Tests::pumpUntil([this] { return getScreenRegion(m_window).min == Pixel{200, 150}; }));
}

TEST_F(NativeWindowsTest, screenRegion_ofAHiddenWindow_isItsPlaceOfLastTime)
{
    show();
    m_frame->Hide();
    Tests::pumpEvents(50);
    m_frame->SetPosition(wxPoint(230, 140));
    EXPECT_EQ(getScreenRegion(m_window).min, (Pixel{230, 140}));
    EXPECT_GE(getScreenRegion(m_window).width(), m_frame->GetClientSize().x);
    EXPECT_GE(getScreenRegion(m_window).height(), m_frame->GetClientSize().y);
}

TEST_F(NativeWindowsTest, screenRegion_ofChildren_isTheirOwn)
{
    auto* inner = new wxPanel(m_panel, wxID_ANY, wxPoint(20, 30), wxSize(100, 80));
    auto* button = new wxButton(inner, wxID_ANY, "press", wxPoint(5, 7), wxSize(80, 60));
    show();
    for (const wxWindow* window :
         {static_cast<wxWindow*>(m_panel), static_cast<wxWindow*>(inner), static_cast<wxWindow*>(button)}) {
        const Pixel start = Wx::toPixel(window->GetParent()->ClientToScreen(window->GetPosition()));
        EXPECT_EQ(getScreenRegion(getWindowNativeHandle(window)),
                  (Bucket{start, start + Wx::toPixel(window->GetSize())}))
            << window->GetName();
    }
}

TEST_F(NativeWindowsTest, screenRegion_ofNoWindow_isEmpty)
{
    EXPECT_EQ(getScreenRegion({}), Bucket());
    EXPECT_EQ(getScreenRegion(staleHandle()), Bucket());
}

TEST_F(NativeWindowsTest, screenRegion_beforeTheFirstShow_isEmptyOrWhereItWillBe)
{
    for (wxWindow* window : {static_cast<wxWindow*>(m_frame), static_cast<wxWindow*>(m_panel)}) {
        const Bucket region = getScreenRegion(getWindowNativeHandle(window));
        EXPECT_TRUE(region == Bucket() || region == Wx::toBucket(window->GetScreenRect()));
    }
}

TEST_F(NativeWindowsTest, screenRegion_ofAStaleChildHandle_isEmpty)
{
    show();
    auto* child = new wxPanel(m_panel);
    const WindowHandle handle = getWindowNativeHandle(child);
    child->Destroy();
    EXPECT_EQ(getScreenRegion(handle), Bucket());
}

TEST_F(NativeWindowsTest, owner_isNoneAtFirst)
{
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), WindowHandle());
}

TEST_F(NativeWindowsTest, setOwner_isWhatOwnerReturns)
{
    EXPECT_EQ(setOwnerFromNativeHandle(m_window, m_owner), m_window);
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), m_owner);
    EXPECT_EQ(getOwnerAsNativeHandle(m_owner), WindowHandle());
    EXPECT_EQ(m_frame->GetParent(), nullptr) << "the toolkit's parents are another matter";
}

TEST_F(NativeWindowsTest, setOwner_worksOnShownWindows)
{
    show();
    m_other->Show();
    Tests::pumpEvents(50);
    setOwnerFromNativeHandle(m_window, m_owner);
    Tests::pumpEvents(50);
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), m_owner);
}

TEST_F(NativeWindowsTest, setOwner_null_makesUnowned)
{
    setOwnerFromNativeHandle(m_window, m_owner);
    EXPECT_EQ(setOwnerFromNativeHandle(m_window, {}), m_window);
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), WindowHandle());
}

TEST_F(NativeWindowsTest, setOwner_replacesTheOwner)
{
    auto* third = new wxFrame(nullptr, wxID_ANY, "third");
    setOwnerFromNativeHandle(m_window, m_owner);
    setOwnerFromNativeHandle(m_window, getWindowNativeHandle(third));
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), getWindowNativeHandle(third));
    setOwnerFromNativeHandle(m_window, {});
    Tests::destroyNow(third);
}

TEST_F(NativeWindowsTest, owner_ofADialog_isTheToolkitsParent)
{
    show(); // the dialog of a hidden window would have no owner
    auto* dialog = new wxDialog(m_frame, wxID_ANY, "dialog");
    EXPECT_EQ(getOwnerAsNativeHandle(getWindowNativeHandle(dialog)), m_window);
}

TEST_F(NativeWindowsTest, setOwner_refusesCircles)
{
    setOwnerFromNativeHandle(m_window, m_window);
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), WindowHandle());

    auto* third = new wxFrame(nullptr, wxID_ANY, "third");
    const WindowHandle last = getWindowNativeHandle(third);
    setOwnerFromNativeHandle(m_window, m_owner);
    setOwnerFromNativeHandle(last, m_window);
    EXPECT_EQ(setOwnerFromNativeHandle(m_owner, last), m_owner);
    EXPECT_EQ(getOwnerAsNativeHandle(m_owner), WindowHandle());
    EXPECT_EQ(getOwnerAsNativeHandle(last), m_window) << "and nothing else has changed";
    setOwnerFromNativeHandle(last, {});
    Tests::destroyNow(third);
}

TEST_F(NativeWindowsTest, handlesOfNoWindow_haveNoOwnerAndGetNone)
{
    const WindowHandle stale = staleHandle();
    for (const WindowHandle none : {WindowHandle(), stale}) {
        EXPECT_EQ(getOwnerAsNativeHandle(none), WindowHandle());
        EXPECT_EQ(setOwnerFromNativeHandle(none, m_owner), none);
        EXPECT_EQ(getOwnerAsNativeHandle(none), WindowHandle());
    }
}

TEST_F(NativeWindowsTest, setOwner_thatIsGone_keepsTheOwner)
{
    setOwnerFromNativeHandle(m_window, m_owner);
    EXPECT_EQ(setOwnerFromNativeHandle(m_window, staleHandle()), m_window);
    EXPECT_EQ(getOwnerAsNativeHandle(m_window), m_owner);
}

TEST_F(NativeWindowsTest, windowBeingDestroyed_mayBeAsked)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "going");
    const WindowHandle handle = getWindowNativeHandle(frame);
    setOwnerFromNativeHandle(handle, m_owner);
    bool asked = false;
    frame->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent& event) {
        [[maybe_unused]] const Bucket region = getScreenRegion(handle);
        setOwnerFromNativeHandle(handle, {});
        asked = getOwnerAsNativeHandle(handle) == WindowHandle();
        event.Skip();
    });
    frame->Destroy();
    EXPECT_TRUE(Tests::pumpUntil([&] { return asked; }));
}
