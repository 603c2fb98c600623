// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DialogParentWrapper.h"

#include "NolvexLibWx/NativeWindows.h"
#include "support/FrameFixture.h"
#include "support/NativeTestWindow.h"

#include <wx/dialog.h>
#include <wx/platinfo.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::DialogParentWrapper;
using Wx::getOwnerAsNativeHandle;
using Wx::getWindowNativeHandle;

namespace {

static_assert(std::is_base_of_v<wxWindow, DialogParentWrapper>);
static_assert(!std::is_convertible_v<WindowHandle, DialogParentWrapper>);

struct DialogParentWrapperTest : Tests::FrameFixture
{
    const Tests::NativeTestWindow foreign;
    const WindowHandle owner = foreign.handle();
};

// A dialog of wxWidgets that ends itself when it has been shown, and remembers its native owner.
class SelfEndingDialog : public wxDialog
{
public:
    explicit SelfEndingDialog(wxWindow* parent) : wxDialog(parent, wxID_ANY, "dialog")
    {
        CallAfter([this] {
            nativeOwner = getOwnerAsNativeHandle(getWindowNativeHandle(this));
            EndModal(wxID_YES);
        });
    }

    WindowHandle nativeOwner;
};

} // namespace

TEST_F(DialogParentWrapperTest, handle_isTheForeignWindows)
{
    const DialogParentWrapper wrapper(owner);
    EXPECT_EQ(getWindowNativeHandle(&wrapper), owner);
}

TEST_F(DialogParentWrapperTest, handle_ofAWidgetInAWindow_isTheWidgets)
{
    const WindowHandle child = getWindowNativeHandle(panel);
    const DialogParentWrapper wrapper(child);
    EXPECT_EQ(getWindowNativeHandle(&wrapper), child);
}

TEST_F(DialogParentWrapperTest, null_staysNull)
{
    const DialogParentWrapper wrapper({});
    EXPECT_EQ(getWindowNativeHandle(&wrapper), WindowHandle());
}

TEST_F(DialogParentWrapperTest, handleOfNoWindow_isNotTouched)
{
    int anything = 0;
    const DialogParentWrapper wrapper({&anything});
    EXPECT_EQ(getWindowNativeHandle(&wrapper), WindowHandle{&anything});
}

TEST_F(DialogParentWrapperTest, wrapper_isATopLevelWindowThatWxWidgetsDoesNotKnow)
{
    const auto count = wxTopLevelWindows.GetCount();
    DialogParentWrapper wrapper(owner);
    EXPECT_TRUE(wrapper.IsTopLevel());
    EXPECT_EQ(wxGetTopLevelParent(&wrapper), &wrapper);
    EXPECT_EQ(wrapper.GetParent(), nullptr);
    EXPECT_EQ(wxTopLevelWindows.GetCount(), count);
}

TEST_F(DialogParentWrapperTest, destructor_leavesTheWindowAlone)
{
    const Bucket region = foreign.region();
    {
        const DialogParentWrapper wrapper(owner);
    }
    EXPECT_TRUE(foreign.isAlive());
    EXPECT_EQ(foreign.region(), region);
    {
        const DialogParentWrapper again(owner);
    }
    EXPECT_TRUE(foreign.isAlive());
}

TEST_F(DialogParentWrapperTest, destructor_leavesAWindowOfWxWidgetsAlone)
{
    showFrame();
    {
        const DialogParentWrapper wrapper(getWindowNativeHandle(frame));
    }
    EXPECT_TRUE(frame->IsShown());
    frame->SetSize(333, 222);
    EXPECT_TRUE(Tests::pumpUntil([this] { return frame->GetSize() == wxSize(333, 222); }));
}

TEST_F(DialogParentWrapperTest, windowDestroyedBeforeTheWrapper_isLeftAlone)
{
    const bool isGtk = wxPlatformInfo::Get().GetPortId() == wxPORT_GTK;
    Tests::NativeTestWindow other;
    const DialogParentWrapper wrapper(other.handle());
    other.destroy();
    EXPECT_FALSE(other.isAlive());
    EXPECT_EQ(getWindowNativeHandle(&wrapper), isGtk ? WindowHandle() : other.handle());
}

TEST_F(DialogParentWrapperTest, dialog_isOwnedByTheForeignWindow)
{
    DialogParentWrapper wrapper(owner);
    SelfEndingDialog dialog(&wrapper);
    EXPECT_EQ(dialog.GetParent(), &wrapper);
    EXPECT_EQ(dialog.ShowModal(), wxID_YES);
    EXPECT_EQ(dialog.nativeOwner, owner);
}

TEST_F(DialogParentWrapperTest, dialog_leavesNoTraceInTheWrapper)
{
    DialogParentWrapper wrapper(owner);
    {
        SelfEndingDialog dialog(&wrapper);
        dialog.ShowModal();
    }
    EXPECT_TRUE(wrapper.GetChildren().empty());
    EXPECT_TRUE(foreign.isEnabled());
}

TEST_F(DialogParentWrapperTest, dialogOfAWindowOfWxWidgets_isOwnedByThatWindow)
{
    showFrame();
    DialogParentWrapper wrapper(getWindowNativeHandle(frame));
    SelfEndingDialog dialog(&wrapper);
    EXPECT_EQ(dialog.ShowModal(), wxID_YES);
    EXPECT_EQ(dialog.nativeOwner, getWindowNativeHandle(frame));
    EXPECT_TRUE(frame->IsEnabled());
}
