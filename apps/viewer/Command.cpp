// SPDX-License-Identifier: MIT
#include "apps/viewer/Command.h"

#include <wx/event.h>
#include <wx/menu.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include <algorithm>
#include <iterator>

namespace Nolvex::Viewer {

namespace {

using Menu = CommandInfo::Menu;
using Kind = CommandInfo::Kind;

constexpr CommandInfo TABLE[] = {
    {OPEN, Menu::PICTURE, Kind::ACTION, L"&Open...", L"Ctrl+O", 'O', wxMOD_CONTROL,
     L"Opens pictures (Ctrl+O)", L"Open..."},
    {SAVE_AS, Menu::PICTURE, Kind::ACTION, L"Save &as...", L"Ctrl+S", 'S', wxMOD_CONTROL,
     L"Saves the picture as a new file (Ctrl+S)", L"Save as..."},
    {SAVE_VIEW, Menu::PICTURE, Kind::ACTION, L"Save &view as...", L"Ctrl+Shift+V", 'V',
     wxMOD_CONTROL | wxMOD_SHIFT, L"Saves the picture as it is shown (Ctrl+Shift+V)"},
    {COPY, Menu::PICTURE, Kind::ACTION, L"&Copy image", L"Ctrl+C", 'C', wxMOD_CONTROL,
     L"Puts the picture on the clipboard (Ctrl+C)", L"Copy"},
    {PASTE, Menu::PICTURE, Kind::ACTION, L"Pas&te", L"Ctrl+V", 'V', wxMOD_CONTROL,
     L"Opens the picture or the files on the clipboard (Ctrl+V)"},
    {CAPTURE_SCREEN, Menu::PICTURE, Kind::ACTION, L"Capture &screen", L"Ctrl+Shift+S", 'S',
     wxMOD_CONTROL | wxMOD_SHIFT, L"Shows a picture of all displays (Ctrl+Shift+S)", L"Capture"},
    {CAPTURE_REGION, Menu::PICTURE, Kind::ACTION, L"Captur&e region...", L"Ctrl+Shift+R", 'R',
     wxMOD_CONTROL | wxMOD_SHIFT, L"Shows a region of the screen that you choose (Ctrl+Shift+R)"},
    {NEXT_PICTURE, Menu::PICTURE, Kind::SEPARATE, L"&Next", L"Ctrl+PgDn", WXK_PAGEDOWN, wxMOD_CONTROL,
     L"Shows the next of the open pictures (Ctrl+PgDn)"},
    {PREVIOUS_PICTURE, Menu::PICTURE, Kind::ACTION, L"P&revious", L"Ctrl+PgUp", WXK_PAGEUP, wxMOD_CONTROL,
     L"Shows the picture before (Ctrl+PgUp)"},
    {RELOAD, Menu::PICTURE, Kind::ACTION, L"Read a&gain", L"F5", WXK_F5, wxMOD_NONE,
     L"Reads the file of the picture again (F5)"},
    {FOLLOW_FILES, Menu::PICTURE, Kind::CHECK, L"&Follow files", L"", 0, wxMOD_NONE,
     L"Reads pictures again when their files change"},
    {CLOSE_PICTURE, Menu::PICTURE, Kind::ACTION, L"Close p&icture", L"Ctrl+Shift+W", 'W',
     wxMOD_CONTROL | wxMOD_SHIFT, L"Closes the picture, not the window (Ctrl+Shift+W)"},
    {CLOSE, Menu::PICTURE, Kind::SEPARATE, L"C&lose", L"Ctrl+W", 'W', wxMOD_CONTROL,
     L"Closes the viewer (Ctrl+W)"},
    {ZOOM_IN, Menu::VIEW, Kind::ACTION, L"Zoom &in", L"Ctrl++", '+', wxMOD_CONTROL,
     L"Shows the picture larger (Ctrl++)"},
    {ZOOM_OUT, Menu::VIEW, Kind::ACTION, L"Zoom &out", L"Ctrl+-", '-', wxMOD_CONTROL,
     L"Shows the picture smaller (Ctrl+-)"},
    {FIT, Menu::VIEW, Kind::ACTION, L"&Fit", L"Ctrl+0", '0', wxMOD_CONTROL,
     L"Shows the whole picture as large as the window allows (Ctrl+0)"},
    {ACTUAL_SIZE, Menu::VIEW, Kind::ACTION, L"&Actual size", L"Ctrl+1", '1', wxMOD_CONTROL,
     L"Shows each pixel of the picture as one of the screen (Ctrl+1)"},
    {SHOW_PICTURES, Menu::VIEW, Kind::CHECK, L"Pictures &list", L"Ctrl+P", 'P', wxMOD_CONTROL,
     L"Shows or hides the list of the open pictures (Ctrl+P)", L"Pictures"},
    {SHOW_INFORMATION, Menu::VIEW, Kind::CHECK, L"Info&rmation", L"Ctrl+H", 'H', wxMOD_CONTROL,
     L"Shows or hides histogram, statistics and metadata (Ctrl+H)", L"Info"},
    {SHOW_LOG, Menu::VIEW, Kind::CHECK, L"Lo&g", L"Ctrl+L", 'L', wxMOD_CONTROL,
     L"Shows or hides what the viewer has done (Ctrl+L)", L"Log"},
    {SHOW_TOOLTIPS, Menu::VIEW, Kind::CHECK, L"&Tooltips", L"", 0, wxMOD_NONE, L"Shows or hides these hints"},
    {LIGHT_SURROUND, Menu::VIEW, Kind::CHECK, L"Light &surround", L"", 0, wxMOD_NONE,
     L"Surrounds the picture with a light grey"},
    {PIXEL_PROBE, Menu::VIEW, Kind::CHECK, L"&Pixel probe", L"Ctrl+I", 'I', wxMOD_CONTROL,
     L"Shows the values of the pixel under the mouse (Ctrl+I)"},
    {SET_REFERENCE, Menu::COMPARE, Kind::ACTION, L"Set as &reference", L"Ctrl+R", 'R', wxMOD_CONTROL,
     L"Compares the other pictures with this one (Ctrl+R)"},
    {FLIP, Menu::COMPARE, Kind::ACTION, L"&Flip", L"Ctrl+F", 'F', wxMOD_CONTROL,
     L"Shows the reference in the place of the picture, and back (Ctrl+F)"},
    {COMPARE_NOTHING, Menu::COMPARE, Kind::RADIO, L"&Picture alone", L"Alt+0", '0', wxMOD_ALT,
     L"Shows the picture without a comparison (Alt+0)"},
    {COMPARE_SIDE_BY_SIDE, Menu::COMPARE, Kind::RADIO, L"&Side by side", L"Alt+1", '1', wxMOD_ALT,
     L"Shows the reference behind a divider that can be moved (Alt+1)"},
    {COMPARE_DIFFERENCE, Menu::COMPARE, Kind::RADIO, L"&Difference", L"Alt+2", '2', wxMOD_ALT,
     L"Shows the picture less the reference (Alt+2)"},
    {COMPARE_ABSOLUTE, Menu::COMPARE, Kind::RADIO, L"&Absolute difference", L"Alt+3", '3', wxMOD_ALT,
     L"Shows the size of the difference (Alt+3)"},
    {COMPARE_SQUARED, Menu::COMPARE, Kind::RADIO, L"S&quared difference", L"Alt+4", '4', wxMOD_ALT,
     L"Shows the square of the difference (Alt+4)"},
    {COMPARE_RELATIVE, Menu::COMPARE, Kind::RADIO, L"Re&lative difference", L"Alt+5", '5', wxMOD_ALT,
     L"Shows the size of the difference as a share of the reference (Alt+5)"},
    {KEYS, Menu::HELP, Kind::ACTION, L"&Keys...", L"F1", WXK_F1, wxMOD_NONE, L"Lists the keys (F1)"},
    {ABOUT, Menu::HELP, Kind::ACTION, L"&About...", L"", 0, wxMOD_NONE, L"Tells what this program is"},
};

struct MenuTitle
{
    Menu menu;
    const wchar_t* text;
};

constexpr MenuTitle TITLES[] = {{Menu::PICTURE, L"&Picture"},
                                {Menu::VIEW, L"&View"},
                                {Menu::COMPARE, L"&Compare"},
                                {Menu::HELP, L"&Help"}};

wxItemKind itemKindOf(Kind kind)
{
    switch (kind) {
    case Kind::CHECK:
        return wxITEM_CHECK;
    case Kind::RADIO:
        return wxITEM_RADIO;
    case Kind::ACTION:
    case Kind::SEPARATE:
        break;
    }
    return wxITEM_NORMAL;
}

wxMenu* makeMenu(Menu which)
{
    auto* menu = new wxMenu;
    for (const CommandInfo& info : TABLE) {
        if (info.menu != which)
            continue;
        if (info.kind == Kind::SEPARATE)
            menu->AppendSeparator();
        wxString text(info.label);
        if (info.key != 0)
            text << '\t' << info.keyText;
        menu->Append(info.command, text, wxString(), itemKindOf(info.kind));
    }
    return menu;
}

// The plus sign stands above the equals sign on many keyboards, and both signs have keys of their own beside
// the digits.
int usualKey(int key)
{
    switch (key) {
    case '=':
    case WXK_NUMPAD_ADD:
        return '+';
    case WXK_NUMPAD_SUBTRACT:
        return '-';
    default:
        return key >= WXK_NUMPAD0 && key <= WXK_NUMPAD9 ? '0' + (key - WXK_NUMPAD0) : key;
    }
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

void bindCommand(wxWindow& window, Command command, const Function<void()>& handler)
{
    window.Bind(
        wxEVT_MENU, [handler](wxCommandEvent&) { handler(); }, command);
}

void runCommand(wxWindow& window, int command)
{
    wxCommandEvent event(wxEVT_MENU, command);
    window.ProcessWindowEvent(event);
}

int commandOf(const wxKeyEvent& event)
{
    const int key = usualKey(event.GetKeyCode());
    const int modifiers = event.GetModifiers();
    if ((key == WXK_ESCAPE && modifiers == wxMOD_NONE) || (key == 'Q' && modifiers == wxMOD_CONTROL))
        return CLOSE;
    for (const CommandInfo& info : TABLE) {
        // Shift is part of typing a plus sign.
        const int without = info.key == '+' ? modifiers & ~wxMOD_SHIFT : modifiers;
        if (info.key != 0 && info.key == key && info.modifiers == without)
            return info.command;
    }
    return wxID_NONE;
}

bool isKeyOfText(const wxKeyEvent& event, const wxWindow* focus)
{
    const auto* const text = dynamic_cast<const wxTextEntry*>(focus);
    if (text == nullptr || !text->IsEditable())
        return false;
    const int key = event.GetKeyCode();
    const bool isClipboard = key == 'A' || key == 'C' || key == 'V' || key == 'X' || key == 'Z';
    return key == WXK_ESCAPE || (event.GetModifiers() == wxMOD_CONTROL && isClipboard);
}

const wchar_t* tooltipOf(Command command)
{
    const auto* const found = std::ranges::find(TABLE, command, &CommandInfo::command);
    return found == std::end(TABLE) ? L"" : found->tooltip;
}

} // namespace Nolvex::Viewer
