// SPDX-License-Identifier: MIT
#include "support/NativeDialog.h"

#include "support/Events.h"

#include <wx/msw/wrapwin.h>
#include <wx/uiaction.h>

#include <commctrl.h>

#include <algorithm>
#include <string>

namespace Nolvex {

namespace {

constexpr const wchar_t* DIALOG_CLASS = L"#32770";
constexpr const wchar_t* LIST_CLASS = L"SysListView32";

String classOf(HWND window)
{
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

String textOf(HWND window)
{
    wchar_t text[512] = L"";
    GetWindowTextW(window, text, 512);
    return text;
}

BOOL CALLBACK collect(HWND window, LPARAM windows)
{
    reinterpret_cast<Array<HWND>*>(windows)->push_back(window);
    return TRUE;
}

Array<HWND> descendants(HWND window)
{
    Array<HWND> windows;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND descendant(HWND window, const wchar_t* className)
{
    for (HWND const child : descendants(window)) {
        if (classOf(child) == className && IsWindowVisible(child))
            return child;
    }
    return nullptr;
}

HWND activeDialog()
{
    HWND const window = GetActiveWindow();
    return window && window == GetForegroundWindow() && IsWindowVisible(window) &&
                   classOf(window) == DIALOG_CLASS
               ? window
               : nullptr;
}

bool isDialogOfProgram(HWND window)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId() && IsWindowVisible(window) && classOf(window) == DIALOG_CLASS;
}

// A file dialog has a field or a tree; a message box has neither.
bool isFileDialog(HWND window)
{
    return descendant(window, L"Edit") || descendant(window, L"SysTreeView32");
}

HWND hwnd(WindowHandle dialog)
{
    return static_cast<HWND>(dialog.native);
}

String itemText(HWND list, int row)
{
    wchar_t text[300] = L"";
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 300;
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text;
}

} // namespace

WindowHandle Tests::activeFileDialog()
{
    HWND const dialog = activeDialog();
    return {dialog && isFileDialog(dialog) ? dialog : nullptr};
}

WindowHandle Tests::activeMessageBox()
{
    HWND const dialog = activeDialog();
    return {dialog && !isFileDialog(dialog) ? dialog : nullptr};
}

String Tests::titleOf(WindowHandle dialog)
{
    return textOf(hwnd(dialog));
}

Array<String> Tests::fileTypesOf(WindowHandle dialog)
{
    Array<String> types;
    HWND const box = descendant(hwnd(dialog), L"ComboBox");
    const auto count = static_cast<int>(SendMessageW(box, CB_GETCOUNT, 0, 0));
    for (int index = 0; index < count; ++index) {
        wchar_t text[300] = L"";
        SendMessageW(box, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
        types.push_back(text);
    }
    return types;
}

Io::Path Tests::shownFolder(WindowHandle /*dialog*/)
{
    return {};
}

Array<String> Tests::listedFiles(WindowHandle dialog)
{
    Array<String> names;
    HWND const list = descendant(hwnd(dialog), LIST_CLASS);
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row)
        names.push_back(itemText(list, row));
    std::sort(names.begin(), names.end());
    return names;
}

// The field has the focus from the start.
void Tests::goToNameField()
{
    wxUIActionSimulator simulator;
    simulator.Char(WXK_HOME);
    simulator.Char(WXK_END, wxMOD_SHIFT);
    pumpEvents(50);
}

String Tests::focusedFieldText()
{
    return textOf(GetFocus());
}

void Tests::selectFiles(const Array<String>& names)
{
    goToNameField();
    wxUIActionSimulator simulator;
    for (const String& name : names)
        simulator.Text((L"\"" + name + L"\" ").toUtf8().c_str());
}

void Tests::answerQuestion(bool yes)
{
    wxUIActionSimulator().Char(yes ? 'Y' : 'N');
}

WindowHandle Tests::activeNativeDialog()
{
    HWND const window = GetForegroundWindow();
    return {window && isDialogOfProgram(window) ? window : nullptr};
}

void Tests::endNativeDialogs()
{
    Array<HWND> windows;
    EnumWindows(collect, reinterpret_cast<LPARAM>(&windows));
    for (HWND const window : windows) {
        if (!isDialogOfProgram(window))
            continue;
        // A box that asks for yes or no has no button to cancel.
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        PostMessageW(window, WM_COMMAND, IDNO, 0);
    }
}

} // namespace Nolvex
