// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Object.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/Press.h"
#include "NolvexLibWx/widgets/IColorPickerFactory.h"

#include <wx/panel.h>

#include <atomic>

namespace Nolvex::Wx {

/// A swatch of one colour.
///
/// - A click opens a picker, which the application makes: see IColorPickerFactory. The swatch shows each
///   colour that the user tries (`onPreview`); the button takes the colour when the user chooses it
///   (`onChange`). After a cancelled picker the swatch goes on showing the last preview, until a colour is
///   set or chosen. One picker runs at a time. The next picker of any button opens where the picker
///   before was closed.
/// - A press that leaves the button drags the colour to another button, in this or another program.
/// - A colour dropped on the button is set and reported, first by `onChange`, then by `onPreview`.
///
/// Any callback may destroy the button, also while a picker runs or a colour is dragged. A picker may call
/// the preview callback on any thread, as long as the button exists.
class NOLVEXLIBWX_EXPORT ColorPickerButton : public wxPanel, public Object
{
public:
    /// The colour is transparent black at first. `title` is that of the pickers, and the name of the button
    /// for assistive technology. `size` is in design units. Without a factory a click opens nothing.
    ///
    /// With `enabled` false the button only looks disabled, until the next call of `Enable`: call
    /// `Enable(false)` to make a button that cannot be operated.
    ColorPickerButton(AutoPtr<IColorPickerFactory>&& factory, wxWindow* parent, const String& title,
                      wxSize size, bool enabled);
    ~ColorPickerButton() override;

    /// The channels may have any values; what cannot be displayed is clamped for the swatch only. With
    /// `notify` calls `onChange`, then `onPreview`.
    void setColor(const Rgb& color, bool notify);

    /// Returns the colour that was set or chosen last, not a preview.
    Rgb getColor() const { return m_color; }

    /// Replaces the title for the next picker.
    void setTitle(const String& title);

    bool Enable(bool enable = true) override;

    /// Always returns false, because the button is operated by the mouse.
    bool AcceptsFocusFromKeyboard() const override { return false; }

private:
    class Account;
    class FactoryLoan;

    void bindEvents();
    void onPaint(wxPaintEvent& event);
    void onLeftDown(wxMouseEvent& event);
    void onLeftUp(wxMouseEvent& event);
    void onLeft(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void openPicker();
    void runPicker(IColorPicker& picker);
    void preview(const Rgb& color);
    void commit(const Rgb& color);
    void take(const Rgb& color);
    void display(const Rgb& color);

    Rgb m_color;
    Rgb m_displayColor; // a preview, or m_color
    String m_title;
    bool m_enabledLook;
    AutoPtr<IColorPickerFactory> m_factory; // null while a picker runs

public:
    Function<void(const Rgb&)> onPreview; ///< is called with each colour that the user tries or drops
    Function<void(const Rgb&)> onChange;  ///< is called with each colour that the user chooses or drops

private:
    bool m_mouseLeft = false;            // the mouse has left the pressed button, and the drag has not begun
    std::atomic<unsigned> m_changes = 0; // how often m_color was set or chosen
    Press m_press{this};
};

} // namespace Nolvex::Wx
