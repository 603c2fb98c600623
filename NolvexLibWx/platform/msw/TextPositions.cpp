// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TextPositions.h"

#include <wx/msw/wrapwin.h>
#include <wx/textctrl.h>

namespace Nolvex {

namespace {

LRESULT send(const wxTextCtrl& text, UINT message, WPARAM first, LPARAM second)
{
    return SendMessageW(static_cast<HWND>(text.GetHWND()), message, first, second);
}

} // namespace

Platform::TextPlace Platform::textPlaceAt(const wxTextCtrl& text, const wxPoint& point)
{
    const LRESULT place = send(text, EM_CHARFROMPOS, 0, MAKELPARAM(point.x, point.y));
    return {LOWORD(place), HIWORD(place)};
}

int Platform::firstIndexOfLine(const wxTextCtrl& text, int line)
{
    return static_cast<int>(send(text, EM_LINEINDEX, static_cast<WPARAM>(line), 0));
}

void Platform::scrollToEnd(const wxTextCtrl& text)
{
    send(text, WM_VSCROLL, SB_BOTTOM, 0);
}

int Platform::firstVisibleLine(const wxTextCtrl& text)
{
    return static_cast<int>(send(text, EM_GETFIRSTVISIBLELINE, 0, 0));
}

void Platform::scrollBackTo(const wxTextCtrl& text, int line)
{
    send(text, EM_LINESCROLL, 0, line - firstVisibleLine(text));
}

} // namespace Nolvex
