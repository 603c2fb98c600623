// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Clipboard.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/DialogRobot.h"
#include "support/FrameFixture.h"
#include "support/NativeDialog.h"
#include "support/TemporaryFolder.h"

#include <wx/textctrl.h>

#include <algorithm>
#include <vector>

namespace Nolvex::Tests {

/// The base of tests that operate the file dialogs of the system: a frame, whose text field has the focus,
/// and a folder for files. The steps are for a DialogRobot.
struct FileDialogFixture : FrameFixture
{
    using Step = DialogRobot::Step;
    using Steps = std::vector<Step>;

    FileDialogFixture()
    {
        showFrame();
        field->SetFocus();
    }

    static bool hasFileDialog() { return static_cast<bool>(activeFileDialog()); }

    static bool hasMessageBox() { return static_cast<bool>(activeMessageBox()); }

    static void pressKey(int key, int modifiers = wxMOD_NONE) { wxUIActionSimulator().Char(key, modifiers); }

    /// Runs `action` as soon as the dialog has the focus.
    static Step inDialog(std::function<void()> action)
    {
        return {"the dialog has the focus", hasFileDialog, std::move(action)};
    }

    /// Runs `action` as soon as the dialog has asked a question or told an error.
    static Step inMessageBox(std::function<void()> action)
    {
        return {"a message box has the focus", hasMessageBox, std::move(action)};
    }

    static Step press(int key, int modifiers = wxMOD_NONE)
    {
        return inDialog([=] { pressKey(key, modifiers); });
    }

    /// Presses the key when the dialog lists these names and no others.
    static Step pressWhenListed(Array<String> names, int key)
    {
        std::sort(names.begin(), names.end());
        return {"the dialog lists the expected files",
                [names] { return hasFileDialog() && listedFiles(activeFileDialog()) == names; },
                [key] { pressKey(key); }};
    }

    /// Pastes a name or path, which may have characters that the keyboard does not have, and presses Return.
    static Step enter(const String& name)
    {
        return inDialog([name] {
            ASSERT_TRUE(Wx::setClipboardData(name));
            goToNameField();
            pressKey('V', wxMOD_CONTROL);
            // GTK looks for a name that begins like this, and completes the text.
            EXPECT_TRUE(pumpUntil([&] { return focusedFieldText().wstr().starts_with(name.wstr()); }));
            pumpEvents(150);
            pressKey(WXK_RETURN);
        });
    }

    static Step enter(const Io::Path& path) { return enter(path.nativeStr()); }

    /// True if the user can go on with the frame.
    bool isFrameUsable() const
    {
        field->Clear();
        if (!pumpUntil([this] { return frame->IsActive() && frame->IsEnabled(); }, 2000))
            return false;
        pressKey('X');
        return pumpUntil([this] { return field->GetValue().Lower() == "x"; }, 2000);
    }

    TemporaryFolder folder;
    wxTextCtrl* otherField = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(5, 5));
    wxTextCtrl* field = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(5, 60));
    WindowHandle owner = Wx::getWindowNativeHandle(frame);
    Array<Io::FileFilter> filters{{L"PNG pictures", {L"*.png"}}, {L"All files", {}}};
};

} // namespace Nolvex::Tests
