// SPDX-License-Identifier: MIT
// Whose the dialogs are, and what becomes of the owner.
#include "NolvexLibWx/FileDialogs.h"

#include "support/FileDialogFixture.h"
#include "support/NativeTestWindow.h"

#include <wx/platinfo.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>

using namespace Nolvex;
using Tests::DialogRobot;
using Tests::NativeTestWindow;
using Wx::dirSelectDlg;
using Wx::filenameOpenDlg;
using Wx::filenameSaveDlg;
using Wx::getOwnerAsNativeHandle;
using Wx::getWindowNativeHandle;
using Wx::multiFilenameOpenDlg;

namespace {

const String NO_TITLE;

struct FileDialogOwnerTest : Tests::FileDialogFixture
{
    // Cancels the dialog, and notes its owner before.
    Step noteOwner()
    {
        return inDialog([this] {
            noted = getOwnerAsNativeHandle(Tests::activeFileDialog());
            pressKey(WXK_ESCAPE);
        });
    }

    // Each function of the four, asked on behalf of an owner. Returns true if the result is empty.
    std::map<std::string, std::function<bool(WindowHandle)>> functions{
        {"open",
         [this](WindowHandle window) {
             return filenameOpenDlg(window, NO_TITLE, {}, folder.path() / L"").isEmpty();
         }},
        {"save",
         [this](WindowHandle window) {
             return filenameSaveDlg(window, NO_TITLE, {}, {}, folder.path() / L"a").isEmpty();
         }},
        {"multi",
         [this](WindowHandle window) {
             return multiFilenameOpenDlg(window, NO_TITLE, {}, folder.path()).empty();
         }},
        {"dir",
         [this](WindowHandle window) { return dirSelectDlg(window, NO_TITLE, folder.path()).isEmpty(); }}};

    WindowHandle noted;
};

} // namespace

TEST_F(FileDialogOwnerTest, dialog_isOwnedByTheWindowOfWxWidgets)
{
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask(owner)) << name;
        EXPECT_EQ(noted, owner) << name;
    }
}

TEST_F(FileDialogOwnerTest, dialog_isOwnedByAForeignWindow)
{
    const NativeTestWindow foreign;
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask(foreign.handle())) << name;
        EXPECT_EQ(noted, foreign.handle()) << name;
        EXPECT_TRUE(foreign.isAlive());
        EXPECT_TRUE(foreign.isEnabled());
        EXPECT_TRUE(Tests::pumpUntil([&] { return foreign.hasFocus(); })) << name;
    }
}

TEST_F(FileDialogOwnerTest, ownerInsideAWindow_standsForTheWindow)
{
    const NativeTestWindow foreign;
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask(foreign.field())) << name;
        EXPECT_EQ(noted, foreign.handle()) << name;
    }
}

TEST_F(FileDialogOwnerTest, withoutOwner_theDialogWorksAllTheSame)
{
    const bool isGtk = wxPlatformInfo::Get().GetPortId() == wxPORT_GTK;
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask({})) << name;
        EXPECT_EQ(noted, isGtk ? owner : WindowHandle()) << name;
        EXPECT_TRUE(isFrameUsable()) << name;
    }
}

TEST_F(FileDialogOwnerTest, withoutAnyWindow_theDialogWorksAllTheSame)
{
    destroyFrame();
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask({})) << name;
        EXPECT_EQ(noted, WindowHandle()) << name;
    }
}

TEST_F(FileDialogOwnerTest, ownerThatIsGone_isNoOwner)
{
    NativeTestWindow gone;
    const WindowHandle handle = gone.handle();
    gone.destroy();
    frame->Raise();
    Tests::pumpUntil([this] { return frame->IsActive(); });
    for (const auto& [name, ask] : functions) {
        DialogRobot robot({noteOwner()});
        EXPECT_TRUE(ask(handle)) << name;
        EXPECT_NE(noted, handle) << name;
    }
}

TEST_F(FileDialogOwnerTest, foreignOwnerDestroyed_endsTheDialogWithoutResult)
{
    for (const auto& [name, ask] : functions) {
        NativeTestWindow foreign;
        DialogRobot robot({inDialog([&] { foreign.destroy(); })});
        EXPECT_TRUE(ask(foreign.handle())) << name;
        EXPECT_FALSE(foreign.isAlive());
    }
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(FileDialogOwnerTest, frameDestroyed_endsTheDialogWithoutResult)
{
    for (const auto& [name, ask] : functions) {
        wxWeakRef<wxFrame> gone(new wxFrame(nullptr, wxID_ANY, "gone"));
        gone->Show();
        Tests::pumpEvents();
        DialogRobot robot({inDialog([&] { gone->Destroy(); })});
        EXPECT_TRUE(ask(getWindowNativeHandle(gone))) << name;
        EXPECT_TRUE(Tests::pumpUntil([&] { return !gone; })) << name;
    }
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(FileDialogOwnerTest, ownerDestroyedBeneathAMessageBox_endsBoth)
{
    NativeTestWindow foreign;
    DialogRobot robot({press(WXK_RETURN), inMessageBox([&] { foreign.destroy(); })});
    EXPECT_TRUE(filenameSaveDlg(foreign.handle(), L"Save", filters, Wx::FileSelect::OverwritePrompt,
                                folder.file(L"a.png", "a"))
                    .isEmpty());
    EXPECT_TRUE(frame->IsEnabled());
}

TEST_F(FileDialogOwnerTest, otherFrameDestroyed_leavesTheDialogAlone)
{
    const Io::Path a = folder.file(L"a.png", "a");
    auto* another = new wxFrame(nullptr, wxID_ANY, "other");
    another->Show();
    DialogRobot robot({inDialog([&] { another->Destroy(); }), enter(a)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, {}), a);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogOwnerTest, activeFrameDestroyed_leavesADialogWithoutOwnerAlone)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({inDialog([&] { frame->Destroy(); }), enter(a)});
    EXPECT_EQ(filenameOpenDlg({}, L"Open", filters, {}), a);
}

TEST_F(FileDialogOwnerTest, dialogFromADialog_returnsToTheFirst)
{
    const Io::Path a = folder.file(L"a.png", "a");
    const Io::Path b = folder.file(L"b.png", "b");
    Io::Path inner;
    DialogRobot robot({inDialog([&] {
                           DialogRobot innerRobot({enter(b)});
                           inner = filenameOpenDlg(Tests::activeFileDialog(), L"Inner", filters, a);
                       }),
                       enter(a)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Outer", filters, b), a);
    EXPECT_EQ(inner, b);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogOwnerTest, ownerOfTwoDialogsDestroyed_endsBoth)
{
    NativeTestWindow foreign;
    bool innerIsEmpty = false;
    DialogRobot robot({inDialog([&] {
        DialogRobot innerRobot({inDialog([&] { foreign.destroy(); })});
        innerIsEmpty = filenameOpenDlg(Tests::activeFileDialog(), L"Inner", filters, {}).isEmpty();
    })});
    EXPECT_TRUE(filenameOpenDlg(foreign.handle(), L"Outer", filters, {}).isEmpty());
    EXPECT_TRUE(innerIsEmpty);
    EXPECT_TRUE(frame->IsEnabled());
}
