// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/PopupFrame.h"

#include <wx/weakref.h>

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
    if (!show)
        return hideWithoutActivating();
    if (IsShown())
        return false;
    ShowWithoutActivating();
    return true;
}

// Before wxWidgets hides a frame that floats on its parent, it brings the parent to the front, which
// activates the parent.
bool Platform::PopupFrame::hideWithoutActivating()
{
    const wxWeakRef<PopupFrame> self(this);
    const long style = m_windowStyle;
    m_windowStyle &= ~wxFRAME_FLOAT_ON_PARENT;
    const bool hidden = wxFrame::Show(false);
    // A handler of wxEVT_SHOW may have destroyed the frame.
    if (self)
        m_windowStyle = style;
    return hidden;
}

WXLRESULT Platform::PopupFrame::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam)
{
    return message == WM_MOUSEACTIVATE ? MA_NOACTIVATE : wxFrame::MSWWindowProc(message, wParam, lParam);
}

} // namespace Nolvex
