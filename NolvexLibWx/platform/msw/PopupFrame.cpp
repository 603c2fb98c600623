// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PopupFrame.h"

#include <wx/msw/wrapwin.h>

namespace Nolvex {

Platform::PopupFrame::PopupFrame(wxWindow* parent, long style, const wxString& name)
{
    // The default constructor ran first so that Create asks the MSWGetStyle of this class.
    Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style, name);
}

Platform::PopupFrame::~PopupFrame() = default;

WXDWORD Platform::PopupFrame::MSWGetStyle(long flags, WXDWORD* extendedStyle) const
{
    const WXDWORD style = wxFrame::MSWGetStyle(flags, extendedStyle);
    if (extendedStyle != nullptr)
        *extendedStyle |= WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW;
    return style;
}

void Platform::PopupFrame::Raise()
{
    SetWindowPos(static_cast<HWND>(GetHWND()), HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

bool Platform::PopupFrame::Show(bool show)
{
    if (!show || IsShown())
        return wxFrame::Show(show);
    ShowWithoutActivating();
    return true;
}

WXLRESULT Platform::PopupFrame::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam)
{
    return message == WM_MOUSEACTIVATE ? MA_NOACTIVATE : wxFrame::MSWWindowProc(message, wParam, lParam);
}

} // namespace Nolvex
