// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxKeyEvent;
class WXDLLIMPEXP_FWD_CORE wxMenuBar;

namespace Nolvex::Viewer {

/// The commands of the viewer's window: the identifiers of its menu items and buttons. A program can send
/// them to the window as wxEVT_MENU.
enum Command : int
{
    OPEN = wxID_OPEN,
    SAVE_AS = wxID_SAVEAS,
    COPY = wxID_COPY,
    CLOSE = wxID_CLOSE,
    CAPTURE_SCREEN = wxID_HIGHEST + 1,
    SHOW_LOG,
    SHOW_TOOLTIPS,
    LIGHT_SURROUND,
    PIXEL_PROBE,
    NEXT_PICTURE,
    PREVIOUS_PICTURE,
    ABOUT = wxID_ABOUT,
};

/// What the user sees of a command. Menus, keys and tooltips come from one table of these.
struct CommandInfo
{
    enum class Menu
    {
        PICTURE,
        VIEW,
        HELP,
    };

    Command command;
    Menu menu;
    /// The text of the menu item. A '&' marks the letter that chooses the item.
    const wchar_t* label;
    /// The key in the form that menus show, such as "Ctrl+O". Empty if the command has no key.
    const wchar_t* keyText;
    int key;
    int modifiers;
    bool isChecked;
    const wchar_t* tooltip;
};

/// Returns the commands in the order of the menus.
ArrayView<const CommandInfo> commandTable();

/// Makes the menu bar with every command of the table. The caller owns the menu bar.
wxMenuBar* makeMenuBar();

/// Returns the command whose key was pressed, or wxID_NONE. Escape and Ctrl+Q close the window, too.
int commandOf(const wxKeyEvent& event);

/// Returns the command's tooltip, which ends with the key of the command.
const wchar_t* tooltipOf(Command command);

} // namespace Nolvex::Viewer
