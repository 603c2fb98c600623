// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"
#include "NolvexLibWx/widgets/Focusable.h"

#include <wx/textctrl.h>

#include <cstdint>

namespace Nolvex::Wx {

/// A plain text area for logs and read-only texts, never a rich one. It has its own selection by the mouse
/// (a click places the caret, dragging extends, a double click takes what is shown as one line), selects
/// everything on Ctrl+A and copies the selection on Ctrl+C. Tab and Shift+Tab move the focus to the next or
/// previous Focusable, Ctrl+Tab and Ctrl+Shift+Tab to a control outside the group. Every other key-down is
/// consumed. Text that is appended stays in view while the user
/// leaves the end alone.
///
/// Windows tells the place under the mouse in 16 bits: beyond 65,535 characters or lines a click puts the
/// caret, and a double click selects, at the wrong place, 65,536 or a multiple of that too early.
class NOLVEXLIBWX_EXPORT TextCtrl : public wxTextCtrl, public Focusable
{
public:
    /// `size` is in pixels. wxTE_RICH, wxTE_RICH2 and wxTE_AUTO_URL are taken out of the style.
    TextCtrl(wxWindow* parent, int id, const wxString& value = {}, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, long style = 0);
    ~TextCtrl() override;

    /// Caret and view follow the end if nothing is selected and the control has either no focus or its caret
    /// at the end. Otherwise the selection and the view stay where they are. The new text is painted with the
    /// next paint event, so that many single appends cost one painting.
    void AppendText(const wxString& text) override;

    /// Works in a frozen control too; the effect is seen when the control is thawed.
    void ShowPosition(long pos) override;

    /// Leaves the view where it is while the control is frozen.
    void SetInsertionPoint(long pos) override;

    /// Paints nothing while frozen.
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
