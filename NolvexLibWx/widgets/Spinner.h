// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/Focusable.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/TextControl.h"

#include <wx/event.h>
#include <wx/panel.h>
#include <wx/timer.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxBoxSizer;
class WXDLLIMPEXP_FWD_CORE wxSpinDoubleEvent;

namespace Nolvex::Wx {

namespace Detail {

class SpinnerArrow;
class SpinnerArrows;
class SpinnerDrag;
class SpinnerField;
class SpinnerValue;

} // namespace Detail

/// The user has pressed an arrow, or a typed value is about to be applied. GetActive() returns true.
wxDECLARE_EXPORTED_EVENT(NOLVEXLIBWX_EXPORT, CUSTSPINNER_START_EDITING, wxActivateEvent);
/// The arrow has been released, or the typed value has been applied. GetActive() returns false.
wxDECLARE_EXPORTED_EVENT(NOLVEXLIBWX_EXPORT, CUSTSPINNER_END_EDITING, wxActivateEvent);
/// The text field has got the focus.
wxDECLARE_EXPORTED_EVENT(NOLVEXLIBWX_EXPORT, CUSTSPINNER_TEXT_FOCUS_GET, wxFocusEvent);
/// The text field has lost the focus, and the typed value has been applied.
wxDECLARE_EXPORTED_EVENT(NOLVEXLIBWX_EXPORT, CUSTSPINNER_TEXT_FOCUS_LOST, wxFocusEvent);

/// A field for a number within bounds, with two arrows beside it.
///
/// The user types a number, clicks or holds an arrow, drags the mouse up or down from an arrow, or clicks an
/// arrow with the right button, which restores the default value or undoes a drag. In the text field, Up and
/// Down make one step, Page Up and Page Down ten steps at once.
///
/// A drag that reaches the top or the bottom of the monitor goes on at the other end, to which the spinner
/// moves the pointer. Where the system refuses to move the pointer, as Wayland does, the drag ends at the
/// edge.
///
/// A change by the user sends CUSTSPINNER_START_EDITING when it begins, one wxEVT_SPINCTRLDOUBLE for each
/// step, and CUSTSPINNER_END_EDITING when it ends; a right click without a press sends only
/// wxEVT_SPINCTRLDOUBLE. The events go up to the parents. The callback is called before the parents receive
/// wxEVT_SPINCTRLDOUBLE. The callback and all handlers may destroy the spinner.
///
/// The value is always rounded to the decimal places that are shown. What rounding takes from one change is
/// carried into the next one. A value beyond a bound becomes the bound, and NaN becomes the maximum. Bounds
/// may be infinite, and a bound that is NaN is no bound. If the bounds are in the wrong order, the value is
/// always the minimum. A negative precision counts as 0. More than nine decimal places are shown, but no step
/// is smaller than one unit of the ninth.
class NOLVEXLIBWX_EXPORT Spinner : public wxPanel, public Focusable
{
public:
    enum class ArrowLook : int
    {
        NORMAL = 0,
        HOVERED = 1,
        PRESSED = 2, ///< both arrows look pressed during a drag
    };

    /// `width` is the width of the text field in design units. A `step` that is 0, negative or not finite is
    /// automatic: 0.004 of the value, or 0.004 if the value is smaller than 1.
    Spinner(wxWindow* parent, int id, int width, float minValue, float maxValue, float defaultValue,
            int precision, float step = 0.0f);
    ~Spinner() override;

    /// Clamps the value to the new bounds, but does not move the value to the new default. `notify` is passed
    /// on to setPrecision.
    void configure(float minValue, float maxValue, float defaultValue, int precision, float step,
                   bool notify);

    float value() const;

    /// Sends wxEVT_SPINCTRLDOUBLE if `notify` is true, even if the value stays the same.
    void setValue(float value, bool notify);

    /// Shows the value anew, as setValue does.
    void setPrecision(int digits, bool notify);

    /// `source` returns the number of decimal places. It is called whenever the value is shown or changed by
    /// a step. An empty `source` is a programming error (StopException).
    void setPrecision(Function<int()> source, bool notify);

    /// Shows the text instead of the value, until the value is shown again or the field loses the focus.
    void setText(const String& text);

    void setTooltip(const String& text);

    void callOnValueChange(Function<void(float)> callback);

    /// If `source` returns a number, a click on an arrow and each repetition change the value by that number.
    void setClickSpeedOverride(Function<Optional<float>()> source);

    /// Gives the focus to the text field and selects its text.
    void SetFocus() override;

    /// Sets the name that assistive technology announces for the spinner. The spinner does not show it.
    void SetLabel(const wxString& label) override;

    wxString GetLabel() const override { return m_label; }

    /// Changes the value as the user does, with all events. Does nothing if the value stays the same.
    void changeByUser(float value);

    /// Returns the picture that an arrow shows, in the size for the screen. Meant for pictures and tests.
    static const wxBitmap& arrowPicture(bool up, ArrowLook look);

protected:
    // Derived spinners may use the parts, any of which may have been destroyed.

    wxTimer& repeatTimer() { return m_repeatTimer; }

    StaticBitmap* upArrow() const;
    StaticBitmap* downArrow() const;
    TextControl* textField() const;

private:
    using Arrow = Detail::SpinnerArrow;
    class Account;

    void bindArrow(Arrow& arrow);
    void bindField(TextControl& field);

    void onArrowDown(Arrow& arrow, const wxMouseEvent& event);
    void onArrowUp(Arrow& arrow);
    void onArrowMoved(Arrow& arrow, const wxMouseEvent& event);
    void onArrowRightUp(Arrow& arrow);
    void onArrowCaptureLost(Arrow& arrow);
    void onArrowEntered(Arrow& arrow, const wxMouseEvent& event);
    void onArrowLeft(Arrow& arrow);
    void onRepeat(wxTimerEvent& event);
    void onValueEvent(wxSpinDoubleEvent& event);
    void onTextEnter(wxCommandEvent& event);
    void onTextFocusGet(wxFocusEvent& event);
    void onTextFocusLost(wxFocusEvent& event);
    void onTextKeyDown(wxKeyEvent& event);

    // The following functions call handlers, and return false if one of them has destroyed the spinner.
    bool applyValue(float requested, bool notify);
    bool changeValue(float target, bool notify);
    bool makeStep(bool increasing, int count);
    bool send(wxEvent& event);
    bool sendEditing(const wxEventTypeTag<wxActivateEvent>& type, bool active);
    bool sendTextFocus(const wxEventTypeTag<wxFocusEvent>& type);
    bool commitText();
    bool endInteraction(Arrow& arrow);

    bool stopInteraction(Arrow& arrow);

    float clickAmount() const;

    wxBoxSizer* m_layout;
    std::unique_ptr<Detail::SpinnerField> m_field;
    std::unique_ptr<Detail::SpinnerArrows> m_arrows;
    std::unique_ptr<Detail::SpinnerValue> m_number;
    std::unique_ptr<Detail::SpinnerDrag> m_drag;
    Function<Optional<float>()> m_clickSpeedOverride;
    Function<void(float)> m_onValueChange;
    wxString m_label;
    float m_valueAtPress = 0;
    bool m_changedByMouse = false;
    bool m_increasing = false;
    wxTimer m_repeatTimer;
};

} // namespace Nolvex::Wx
