// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/widgets/TextControl.h"

#include <wx/weakref.h>

namespace Nolvex::Wx::Detail {

/// The text field of a Spinner, which may be destroyed before the spinner and may outlive it.
class SpinnerField : private Noncopyable
{
public:
    /// Must exist while the spinner handles an event of the field, whose handlers may destroy the spinner.
    class Event : private Noncopyable
    {
    public:
        Event(SpinnerField& field, wxWindow* spinner);
        ~Event();

    private:
        SpinnerField& m_field;
        wxWeakRef<wxWindow> m_spinner;
    };

    /// `width` is in design units.
    TextControl* make(wxWindow* border, int width);

    /// Returns null if the field has been destroyed.
    TextControl* control() const { return m_control; }

    void showValue(const wxString& text);

    const wxString& shownValue() const { return m_shownValue; }

    /// Returns true if the text is not that of the value, because the user has typed or a text was set.
    bool isEdited() const;

    void selectAll() const;

    /// Must be called when the spinner, a child of `parent`, is destroyed. A field that is handling an event
    /// becomes a hidden child of the parent and is destroyed later.
    void release(wxWindow* parent) const;

private:
    wxWeakRef<TextControl> m_control;
    wxString m_shownValue;
    int m_events = 0; // the number of events that are being handled
};

} // namespace Nolvex::Wx::Detail
