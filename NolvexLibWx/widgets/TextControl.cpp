// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextControl.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/platform/NativePaint.h"

#include <wx/dc.h>

namespace Nolvex {

Wx::TextControl::TextControl(wxWindow* parent, int id, const String& value, unsigned int style,
                             Flags<TextFlag> flags, wxSize size)
    : SkinnableMixin<wxTextCtrl>(parent, id, toWxString(value), wxDefaultPosition, scaleByDpi(size),
                                 static_cast<long>(style)),
      TooltipWindow(this),
      m_disabledPaint(std::make_unique<Platform::NativePaint>(*this, [this](wxDC& dc) { paintDisabled(dc); }))
{
    SetFont(setupStaticTextFont(GetFont(), flags));
    // A rich control of Windows would let the user undo the value and the font that it was made with.
    EmptyUndoBuffer();
}

Wx::TextControl::~TextControl() = default;

void Wx::TextControl::applySkin(const GuiSkin& skin)
{
    SkinnableMixin<wxTextCtrl>::applySkin(skin);
    // wxWidgets repaints for the two colours that it knows, and only if they change.
    Refresh();
}

bool Wx::TextControl::AcceptsFocusFromKeyboard() const
{
    return !HasFlag(wxTE_READONLY);
}

wxString Wx::TextControl::visibleValue() const
{
    constexpr wchar_t BULLET = L'\u2022';
    const wxString value = GetValue();
    return HasFlag(wxTE_PASSWORD) ? wxString(BULLET, value.length()) : value;
}

void Wx::TextControl::paintDisabled(wxDC& dc) const
{
    constexpr int LEFT = 3;
    dc.SetTextForeground(toWxColour(m_skin.disabledText));
    dc.DrawText(visibleValue(), scaleByDpi(LEFT), 0);
}

} // namespace Nolvex
