// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/picker/ChannelRow.h"

#include <wx/dialog.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxSizer;

namespace Nolvex::Picker {

class ColorSwatch;
class HexField;

/// Lets the user choose a colour by sliders and numbers, by its hexadecimal form or from the colours chosen
/// last, beside the colour before. Return and the button OK choose the colour, Escape and the button Cancel
/// leave the colour as it was.
///
/// Red, green and blue may lie outside of 0 to 1. A channel that the user does not touch keeps its number
/// exactly, be it NaN or infinite.
class ColorPickerDialog : public wxDialog
{
public:
    /// `owner` may be null. With wxDefaultPosition the dialog opens beside `owner`. `onPreview`, which may be
    /// empty, is called with each colour that the user tries.
    ColorPickerDialog(wxWindow* owner, const String& title, const wxPoint& position, const Rgb& initial,
                      Function<void(const Rgb&)> onPreview);
    ~ColorPickerDialog() override;

    /// Shows the dialog until the user ends it. Returns the chosen colour, or nullopt if the user has
    /// cancelled or the owner was destroyed.
    Optional<Rgb> run();

    /// Cancels, since the creator of the dialog destroys the dialog.
    bool Destroy() override;

private:
    void addChannels(wxSizer& rows);
    void addComparison(wxSizer& rows);
    void addRecentColors(wxSizer& rows);
    void addButtons(wxSizer& rows);
    void watchOwner(wxWindow* owner);
    void place(const wxWindow* owner, const wxPoint& position);

    void change(Channel channel, float number);
    void take(const Rgb& color);
    void showColor();
    void commit();
    void end(int result);

    void onCharHook(wxKeyEvent& event);
    void onOwnerDestroyed(wxWindowDestroyEvent& event);

    Rgb m_initial;
    PickedColor m_color;
    Function<void(const Rgb&)> m_onPreview;
    wxWindow* m_owner;
    Array<std::unique_ptr<ChannelRow>> m_channels;
    HexField* m_hex = nullptr;
    ColorSwatch* m_new = nullptr;
    bool m_ended = false;
};

} // namespace Nolvex::Picker
