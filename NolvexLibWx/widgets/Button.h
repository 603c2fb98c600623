// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/Press.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>

namespace Nolvex::Wx {

/// A bordered push or toggle button with an optional bitmap and a label, in the colours of its own copy of a
/// skin.
///
/// A click, which is a press and a release inside, is reported twice: the event handler of the parent window
/// is given an event of type wxEVT_BUTTON, then the callback is called. Either may destroy the button. The
/// event is a wxMouseEvent with the position of the click: bind a handler that takes a wxEvent or
/// wxMouseEvent, not a wxCommandEvent, and bind it to the parent, since the event goes no further up.
class NOLVEXLIBWX_EXPORT Button : public OskaBorder, public TooltipWindow
{
public:
    /// Any other value behaves as PUSH.
    enum class Behavior : int
    {
        PUSH = 0,
        TOGGLE = 1, ///< stays in the accent colour after every second click
    };

    /// All visible properties of a button except its background.
    struct Face
    {
        Flags<OskaBorderState> border;
        wxBitmap bitmap; ///< may be invalid
        wxString label;
        wxFont font;
        wxColour textColour;
    };

    /// Both bitmaps may be invalid. Without `bitmap` the button shows no bitmap, and without `disabledBitmap`
    /// the disabled button shows `bitmap` too. `onClick` may be empty.
    Button(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label, const wxBitmap& bitmap,
           const wxBitmap& disabledBitmap, Function<void()> onClick, Behavior behavior, bool enabled,
           Flags<OskaBorderState> borderFlags);
    ~Button() override;

    void SetLabel(const wxString& label) override;

    wxString GetLabel() const override { return m_label; }

    /// A press that has begun is completed when the mouse is released, even if a parent is disabled
    /// meanwhile.
    bool Enable(bool enable = true) override;

    /// Always returns false, because the button is operated by the mouse.
    bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Clicks the button, even if it is disabled. The event has the `position`, in pixels from the button's
    /// top left corner.
    void doClick(wxPoint position);

    /// Sends no event and calls no callback.
    void setToggled(bool on);

    bool isToggled() const { return m_toggled; }

    bool isPressed() const { return m_press.isHeld(); }

    /// Returns the present appearance of the button.
    Face face() const;

    /// Paints the face of a button that fills `rect`. The border is exact for a `rect` that starts at (0, 0),
    /// as explained at OskaBorder::draw.
    static void draw(wxDC& dc, const Bucket& rect, const Face& face);

protected:
    virtual void onMouseDown(wxMouseEvent& event);
    virtual void onMouseUp(wxMouseEvent& event);
    virtual void onCaptureLost(wxMouseCaptureLostEvent& event);
    virtual void onButtonPaint(wxPaintEvent& event);

    // The following functions are for a button that consists of several buttons.

    static void passMouseUp(Button& part, wxMouseEvent& event) { part.onMouseUp(event); }

    /// Calls the click callback of the part, which may destroy any of the buttons.
    static void callBack(const Button& part);

    static void swapCallbacks(Button& one, Button& other);

    /// Makes the button pressed and captures the mouse.
    void beginPress();

    /// Ends the press without a click.
    void cancelPress();

    /// Releases the mouse capture while the button stays pressed. `onMouseUp` completes the press.
    void freeMouse() { m_press.freeMouse(); }

    bool isToggle() const { return m_toggleBehaviour; }

    const GuiSkin& skin() const { return m_skin; }

    const wxBitmap& bitmap() const { return m_bitmap; }

    const wxBitmap& bitmapWhenDisabled() const { return m_bitmapWhenDisabled; }

    /// Neither of the two setters repaints the button.
    void setBitmap(const wxBitmap& bitmap) { m_bitmap = bitmap; }

    void setBitmapWhenDisabled(const wxBitmap& bitmap) { m_bitmapWhenDisabled = bitmap; }

    void DoEnable(bool enable) override;

private:
    void updateColours();
    void onMouseTaken(wxMouseCaptureLostEvent& event);

    wxString m_label;
    wxBitmap m_bitmapWhenDisabled;
    wxBitmap m_bitmap;
    bool m_toggleBehaviour;
    bool m_toggled = false;
    bool m_keepsPress = false; // true while Windows ends the capture of a disabled window
    GuiSkin m_skin;
    Function<void()> m_clickCallback;
    Press m_press{this, Press::WhenDisabled::STAYS};
};

} // namespace Nolvex::Wx
