// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/MouseCapture.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"

#include <wx/bitmap.h>

namespace Nolvex::Wx {

/// A bordered push or toggle button with an optional bitmap and a label, in the colours of its own copy of a
/// skin.
///
/// A click, which is a press and a release inside, is reported twice: the parent window's event handler is
/// given an event of type wxEVT_BUTTON, then the callback is called. Either may destroy the button. The event
/// is a wxMouseEvent with the position of the click: bind a handler that takes a wxEvent or wxMouseEvent, not
/// a wxCommandEvent, and bind it to the parent, since the event goes no further up.
class NOLVEXLIBWX_EXPORT Button : public OskaBorder, public TooltipWindow
{
public:
    /// Any other value behaves as PUSH.
    enum class Behavior : int
    {
        PUSH = 0,
        TOGGLE = 1, ///< stays in the accent colour after every second click
    };

    /// Both bitmaps may be invalid: without `bitmap` there is none, without `disabledBitmap` the disabled
    /// button shows `bitmap` too. `onClick` may be empty.
    Button(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label, const wxBitmap& bitmap,
           const wxBitmap& disabledBitmap, Function<void()> onClick, Behavior behavior, bool enabled,
           Flags<OskaBorderState> borderFlags);
    ~Button() override;

    void SetLabel(const wxString& label) override;

    wxString GetLabel() const override { return m_label; }

    /// A press that has begun is still completed by its release.
    bool Enable(bool enable = true) override;

    /// Never: it is for the mouse.
    bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Clicks the button, also a disabled one; `position` in its own pixels goes into the event.
    void doClick(wxPoint position);

    /// Sends no event and calls no callback.
    void setToggled(bool on);

    bool isToggled() const { return m_toggled; }

    bool isPressed() const { return m_pressed; }

    /// Paints what the button shows, but for its background, over the size of the DC from its origin.
    void drawFace(wxDC& dc) const;

protected:
    virtual void onMouseDown(wxMouseEvent& event);
    virtual void onMouseUp(wxMouseEvent& event);
    virtual void onCaptureLost(wxMouseCaptureLostEvent& event);
    virtual void onButtonPaint(wxPaintEvent& event);

    /// Becomes pressed and captures the mouse.
    void press();

    bool isToggle() const { return m_toggleBehaviour; }

    const GuiSkin& skin() const { return m_skin; }

    MouseCapture& capture() { return m_capture; }

    wxString m_label;
    wxBitmap m_bitmapWhenDisabled;
    wxBitmap m_bitmap;

private:
    friend class DropdownButton; // the items of its popup are buttons that it hovers, releases and relabels

    void updateColours();
    void drawLabel(wxDC& dc, wxSize size, int bitmapWidth) const;
    void onMouseTaken(wxMouseCaptureLostEvent& event);

    bool m_pressed = false;
    bool m_toggleBehaviour;
    bool m_toggled = false;
    GuiSkin m_skin;

protected:
    Function<void()> m_clickCallback;

private:
    MouseCapture m_capture{this};
    bool m_keepsPress = false;
};

} // namespace Nolvex::Wx
