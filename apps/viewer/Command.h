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
    COPY = wxID_COPY,
    CLOSE = wxID_CLOSE,
    CAPTURE_SCREEN = wxID_HIGHEST + 1,
    SHOW_LOG,
    SHOW_TOOLTIPS,
    LIGHT_SURROUND,
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
    /// With the letter that chooses the item marked by '&'.
    const wchar_t* label;
    /// As a menu writes it, "Ctrl+O"; empty without a key.
    const wchar_t* keyText;
    int key;
    int modifiers;
    bool isChecked;
    const wchar_t* tooltip;
};

/// In the order of the menus.
ArrayView<const CommandInfo> commandTable();

/// The menu bar with every command of the table. The caller owns it.
wxMenuBar* makeMenuBar();

/// The command whose key this is, or wxID_NONE. Escape and Ctrl+Q close the window, too.
int commandOf(const wxKeyEvent& event);

/// The command's tooltip with its key behind it.
const wchar_t* tooltipOf(Command command);

} // namespace Nolvex::Viewer
