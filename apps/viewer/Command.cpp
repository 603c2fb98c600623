// SPDX-License-Identifier: MIT
#include "apps/viewer/Command.h"

#include <wx/event.h>
#include <wx/menu.h>

#include <algorithm>
#include <iterator>

namespace Nolvex::Viewer {

namespace {

using Menu = CommandInfo::Menu;

constexpr CommandInfo TABLE[] = {
    {OPEN, Menu::PICTURE, L"&Open...", L"Ctrl+O", 'O', wxMOD_CONTROL, false, L"Opens pictures (Ctrl+O)"},
    {SAVE_AS, Menu::PICTURE, L"Save &as...", L"Ctrl+S", 'S', wxMOD_CONTROL, false,
     L"Saves the picture as a new file (Ctrl+S)"},
    {COPY, Menu::PICTURE, L"&Copy image", L"Ctrl+C", 'C', wxMOD_CONTROL, false,
     L"Puts the picture on the clipboard (Ctrl+C)"},
    {CAPTURE_SCREEN, Menu::PICTURE, L"Capture &screen", L"Ctrl+Shift+S", 'S', wxMOD_CONTROL | wxMOD_SHIFT,
     false, L"Shows a picture of all displays (Ctrl+Shift+S)"},
    {NEXT_PICTURE, Menu::PICTURE, L"&Next", L"Ctrl+PgDn", WXK_PAGEDOWN, wxMOD_CONTROL, false,
     L"Shows the next of the pictures that were opened together (Ctrl+PgDn)"},
    {PREVIOUS_PICTURE, Menu::PICTURE, L"P&revious", L"Ctrl+PgUp", WXK_PAGEUP, wxMOD_CONTROL, false,
     L"Shows the picture before (Ctrl+PgUp)"},
    {CLOSE, Menu::PICTURE, L"C&lose", L"Ctrl+W", 'W', wxMOD_CONTROL, false, L"Closes the viewer (Ctrl+W)"},
    {SHOW_LOG, Menu::VIEW, L"&Log", L"Ctrl+L", 'L', wxMOD_CONTROL, true,
     L"Shows or hides what the viewer has done (Ctrl+L)"},
    {SHOW_TOOLTIPS, Menu::VIEW, L"&Tooltips", L"", 0, wxMOD_NONE, true, L"Shows or hides these hints"},
    {LIGHT_SURROUND, Menu::VIEW, L"Light &surround", L"", 0, wxMOD_NONE, true,
     L"Surrounds the picture with a light grey"},
    {PIXEL_PROBE, Menu::VIEW, L"&Pixel probe", L"Ctrl+I", 'I', wxMOD_CONTROL, true,
     L"Shows the values of the pixel under the mouse (Ctrl+I)"},
    {ABOUT, Menu::HELP, L"&About...", L"", 0, wxMOD_NONE, false, L"Tells what this program is"},
};

struct MenuTitle
{
    Menu menu;
    const wchar_t* text;
};

constexpr MenuTitle TITLES[] = {{Menu::PICTURE, L"&Picture"}, {Menu::VIEW, L"&View"}, {Menu::HELP, L"&Help"}};

wxMenu* makeMenu(Menu which)
{
    auto* menu = new wxMenu;
    for (const CommandInfo& info : TABLE) {
        if (info.menu != which)
            continue;
        if (info.command == CLOSE)
            menu->AppendSeparator();
        wxString text(info.label);
        if (info.key != 0)
            text << '\t' << info.keyText;
        menu->Append(info.command, text, wxString(), info.isChecked ? wxITEM_CHECK : wxITEM_NORMAL);
    }
    return menu;
}

} // namespace

ArrayView<const CommandInfo> commandTable()
{
    return TABLE;
}

wxMenuBar* makeMenuBar()
{
    auto* bar = new wxMenuBar;
    for (const MenuTitle& title : TITLES)
        bar->Append(makeMenu(title.menu), title.text);
    return bar;
}

int commandOf(const wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    if ((key == WXK_ESCAPE && modifiers == wxMOD_NONE) || (key == 'Q' && modifiers == wxMOD_CONTROL))
        return CLOSE;
    for (const CommandInfo& info : TABLE) {
        if (info.key != 0 && info.key == key && info.modifiers == modifiers)
            return info.command;
    }
    return wxID_NONE;
}

const wchar_t* tooltipOf(Command command)
{
    const auto* const found = std::ranges::find(TABLE, command, &CommandInfo::command);
    return found == std::end(TABLE) ? L"" : found->tooltip;
}

} // namespace Nolvex::Viewer
