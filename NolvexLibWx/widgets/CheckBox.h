// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/OwnWindowCheckBox.h"
#include "NolvexLibWx/widgets/Focusable.h"

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Wx {

/// A check box in the library's dark style; a wxCheckBox to everybody else.
///
/// A change by the user calls the callback, which may destroy the check box, then sends wxEVT_CHECKBOX on to
/// the parents. Tab and Shift+Tab, when released, move the focus to the next or previous Focusable.
class NOLVEXLIBWX_EXPORT CheckBox : public Platform::OwnWindowCheckBox, public Focusable
{
public:
    /// `size` in design units; by default the box alone without a label, and as wide as it needs with one.
    CheckBox(wxWindow* parent, int id, const String& label, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, bool enabled = true);
    ~CheckBox() override;

    /// Brings the font to the library's default size.
    bool SetFont(const wxFont& font) override;

    /// With `notify` as if the user had changed it, also to the value it has already.
    void setValue(bool value, bool notify);

    void setChangeCallback(Function<void(bool)> onChange);

    /// Paints what the check box shows, from the DC's origin.
    void drawFace(wxDC& dc) const;

private:
    void onChanged(wxCommandEvent& event);
    void onPaint(wxPaintEvent& event);
    void onFocusLost(wxFocusEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onKeyUp(wxKeyEvent& event);

    Function<void(bool)> m_changeCallback;
    bool m_tabPressed = false;
};

} // namespace Nolvex::Wx
