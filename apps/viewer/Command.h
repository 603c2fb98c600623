// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Function.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxKeyEvent;
class WXDLLIMPEXP_FWD_CORE wxMenuBar;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// The commands of the viewer's window: the identifiers of its menu items and buttons. A program can send
/// them to the window as wxEVT_MENU.
enum Command : int
{
    OPEN = wxID_OPEN,
    SAVE_AS = wxID_SAVEAS,
    COPY = wxID_COPY,
    PASTE = wxID_PASTE,
    CLOSE = wxID_CLOSE,
    CAPTURE_SCREEN = wxID_HIGHEST + 1,
    CAPTURE_REGION,
    SAVE_VIEW,
    NEXT_PICTURE,
    PREVIOUS_PICTURE,
    RELOAD,
    CLOSE_PICTURE,
    ZOOM_IN,
    ZOOM_OUT,
    FIT,
    ACTUAL_SIZE,
    SHOW_PICTURES,
    SHOW_INFORMATION,
    SHOW_LOG,
    SHOW_TOOLTIPS,
    LIGHT_SURROUND,
    PIXEL_PROBE,
    FOLLOW_FILES,
    SET_REFERENCE,
    FLIP,
    COMPARE_NOTHING,
    COMPARE_SIDE_BY_SIDE,
    COMPARE_DIFFERENCE,
    COMPARE_ABSOLUTE,
    COMPARE_SQUARED,
    COMPARE_RELATIVE,
    KEYS,
    ABOUT = wxID_ABOUT,
};

/// What the user sees of a command. Menus, tool bar, keys and tooltips come from one table of these.
struct CommandInfo
{
    enum class Menu
    {
        PICTURE,
        VIEW,
        COMPARE,
        HELP,
    };

    enum class Kind
    {
        ACTION,
        SEPARATE, ///< an action behind a line in the menu
        CHECK,
        RADIO, ///< one of those that stand side by side in the table
    };

    Command command;
    Menu menu;
    Kind kind;
    /// The text of the menu item. A '&' marks the letter that chooses the item.
    const wchar_t* label;
    /// The key in the form that menus show, such as "Ctrl+O". Empty if the command has no key.
    const wchar_t* keyText;
    int key;
    int modifiers;
    const wchar_t* tooltip;
    /// The text of the command's button in the tool bar. Null if there is no button.
    const wchar_t* button = nullptr;

    bool isChecked() const { return kind == Kind::CHECK || kind == Kind::RADIO; }
};

/// Returns the commands in the order of the menus.
ArrayView<const CommandInfo> commandTable();

/// Makes the menu bar with every command of the table. The caller owns the menu bar.
wxMenuBar* makeMenuBar();

/// Calls the handler when the window gets the command.
void bindCommand(wxWindow& window, Command command, const Function<void()>& handler);

/// Sends the command to the window.
void runCommand(wxWindow& window, int command);

/// Returns the command whose key was pressed, or wxID_NONE. Escape and Ctrl+Q close the window, too.
int commandOf(const wxKeyEvent& event);

/// Returns whether the key is for the text in the window that has the focus, which may be null: the keys of
/// the clipboard and Escape, in a field that can be edited.
bool isKeyOfText(const wxKeyEvent& event, const wxWindow* focus);

/// Returns the command's tooltip, which ends with the key of the command.
const wchar_t* tooltipOf(Command command);

} // namespace Nolvex::Viewer
