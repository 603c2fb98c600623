// SPDX-License-Identifier: MIT
#include "apps/viewer/KeysMessage.h"

#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/Command.h"

#include <wx/menuitem.h>

namespace Nolvex::Viewer {

namespace {

const wchar_t* const OTHER_KEYS = L"\n"
                                  L"Arrows, Page Up, Page Down, Home, End: move the picture\n"
                                  L"+, \u2212: zoom\n"
                                  L"Shift + arrows: select pixels\n"
                                  L"Ctrl + arrows, Home, End: choose a pixel and show its values; "
                                  L"Ctrl + Shift + arrows: by ten\n"
                                  L"Alt + Left, Alt + Right: move the divider of a comparison\n"
                                  L"Delete in the list of pictures: close the picture\n"
                                  L"Escape: end a selection or the pixel probe, or close the viewer";

} // namespace

String keysText()
{
    String text;
    for (const CommandInfo& info : commandTable()) {
        if (info.key != 0)
            text += String(info.keyText) + L": " +
                    Wx::toString(wxMenuItem::GetLabelText(info.label)).replaceAll(L"...", L"") + L"\n";
    }
    return text + OTHER_KEYS;
}

void showKeysMessage(wxWindow* owner)
{
    Wx::showOkDialog(Wx::getWindowNativeHandle(owner), L"Keys of the viewer", keysText(),
                     Wx::MessageDialogIcon::INFO);
}

} // namespace Nolvex::Viewer
