// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"
#include "NolvexLibWx/widgets/Focusable.h"

#include <wx/textctrl.h>

#include <cstdint>

namespace Nolvex::Wx {

/// A plain text area for logs and read-only texts; it is never a rich control. A click places the caret,
/// dragging selects, and a double click selects one line as shown on the screen. Ctrl+A selects everything
/// and Ctrl+C copies the selection. Tab and Shift+Tab move the focus to the next or previous Focusable,
/// Ctrl+Tab and Ctrl+Shift+Tab to a control outside the group. Every other key-down event is consumed. The
/// view follows appended text unless the user has left the end.
///
/// Windows reports the position under the mouse in 16 bits. In a text of more than 65,535 characters or
/// lines, a click or double click behind this limit acts at a place that is 65,536 or a multiple of it too
/// early.
class NOLVEXLIBWX_EXPORT TextCtrl : public wxTextCtrl, public Focusable
{
public:
    /// `size` is in pixels. wxTE_RICH, wxTE_RICH2 and wxTE_AUTO_URL are removed from the style.
    TextCtrl(wxWindow* parent, int id, const wxString& value = {}, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, long style = 0);
    ~TextCtrl() override;

    /// Caret and view follow the end if nothing is selected and the control does not have the focus or its
    /// caret is at the end. Otherwise the selection and the view stay where they are. The new text is painted
    /// at the next paint event, so that many appends cost one painting.
    void AppendText(const wxString& text) override;

    /// Also works in a frozen control, which shows the effect when it is thawed.
    void ShowPosition(long pos) override;

    /// Does not scroll while the control is frozen.
    void SetInsertionPoint(long pos) override;

    /// Paints nothing while the control is frozen.
    void Update() override;

protected:
    void DoFreeze() override;
    void DoThaw() override;
    void DoCaptureMouse() override;

private:
    void appendFrozen(const wxString& text);
    void onEraseBackground(wxEraseEvent& event);
    void onLeftDown(wxMouseEvent& event);
    void onLeftDoubleClick(wxMouseEvent& event);
    void onLeftUp(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onEnter(wxMouseEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onCharHook(wxKeyEvent& event);

    bool m_selecting = false;
    std::int32_t m_selectionAnchor = 0;
    MouseCapture m_capture{this};

    wxDECLARE_EVENT_TABLE();
};

} // namespace Nolvex::Wx
