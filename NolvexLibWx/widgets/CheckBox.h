// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/platform/OwnWindowCheckBox.h"
#include "NolvexLibWx/widgets/Focusable.h"

#include <wx/colour.h>
#include <wx/font.h>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Wx {

/// A wxCheckBox that paints itself in the library's dark style.
///
/// A change by the user calls the callback, which may destroy the check box, then sends wxEVT_CHECKBOX on to
/// the parents. Tab and Shift+Tab, when released, move the focus to the next or previous Focusable.
class NOLVEXLIBWX_EXPORT CheckBox : public Platform::OwnWindowCheckBox, public Focusable
{
public:
    /// All visible properties of a check box except its background.
    struct Face
    {
        wxString label; ///< without the marks of mnemonics
        wxFont font;
        wxColour labelColour;
        wxColour focusColour;
        bool checked = false;
        bool focused = false;
    };

    /// `size` is in design units. By default the check box has the size of the box if the label is empty, and
    /// otherwise the width that the label needs.
    CheckBox(wxWindow* parent, int id, const String& label, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, bool enabled = true);
    ~CheckBox() override;

    /// Brings the font to the library's default size.
    bool SetFont(const wxFont& font) override;

    /// With `notify`, acts as if the user had changed the value, even if the value stays the same.
    void setValue(bool value, bool notify);

    void setChangeCallback(Function<void(bool)> onChange);

    /// Returns the present appearance of the check box.
    Face face() const;

    /// Paints the face of a check box at the corner of `rect`. The box is exact for a `rect` that starts at
    /// (0, 0), as explained at OskaBorder::draw. A label that is too long extends beyond the `rect`.
    static void draw(wxDC& dc, const Bucket& rect, const Face& face);

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
