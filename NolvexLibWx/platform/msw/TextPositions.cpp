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

// Returns the index in the low 16 bits and the line in the high 16 bits.
LRESULT placeAt(const wxTextCtrl& text, const wxPoint& point)
{
    return send(text, EM_CHARFROMPOS, 0, MAKELPARAM(point.x, point.y));
}

// Returns -1 for a line beyond the last.
int firstIndexOfLine(const wxTextCtrl& text, int line)
{
    return static_cast<int>(send(text, EM_LINEINDEX, static_cast<WPARAM>(line), 0));
}

int firstVisibleLine(const wxTextCtrl& text)
{
    return static_cast<int>(send(text, EM_GETFIRSTVISIBLELINE, 0, 0));
}

} // namespace

int Platform::textIndexAt(const wxTextCtrl& text, const wxPoint& point)
{
    return LOWORD(placeAt(text, point));
}

Platform::TextLine Platform::textLineAt(const wxTextCtrl& text, const wxPoint& point)
{
    const int line = HIWORD(placeAt(text, point));
    const int next = firstIndexOfLine(text, line + 1);
    return {firstIndexOfLine(text, line), next == -1 ? text.GetLastPosition() : next - 1};
}

void Platform::scrollToEnd(const wxTextCtrl& text)
{
    send(text, WM_VSCROLL, SB_BOTTOM, 0);
}

void Platform::scrollToPosition(wxTextCtrl& text, long position)
{
    text.wxTextCtrl::ShowPosition(position);
}

Platform::TextView Platform::visiblePart(const wxTextCtrl& text)
{
    return {firstVisibleLine(text), GetScrollPos(static_cast<HWND>(text.GetHWND()), SB_HORZ)};
}

void Platform::scrollBackTo(const wxTextCtrl& text, const TextView& view)
{
    send(text, EM_LINESCROLL, 0, view.firstLine - firstVisibleLine(text));
    // A text that wraps is never scrolled to the right.
    if (text.HasFlag(wxTE_DONTWRAP))
        send(text, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, view.left), 0);
}

} // namespace Nolvex
