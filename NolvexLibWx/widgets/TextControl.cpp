// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextControl.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/platform/NativePaint.h"
#include "NolvexLibWx/platform/TextLook.h"

#include <wx/dc.h>

namespace Nolvex {

Wx::TextControl::TextControl(wxWindow* parent, int id, const String& value, unsigned int style,
                             Flags<TextFlag> flags, wxSize size)
    : SkinnableMixin<wxTextCtrl>(parent, id, toWxString(value), wxDefaultPosition, scaleByDpi(size),
                                 static_cast<long>(style)),
      TooltipWindow(this),
      m_disabledPaint(std::make_unique<Platform::NativePaint>(*this, [this](wxDC& dc) { paintDisabled(dc); }))
{
    Platform::adaptTextLook(*this);
    SetFont(setupStaticTextFont(GetFont(), flags));
    // In a rich control of Windows, the user could otherwise undo the initial value and the font.
    EmptyUndoBuffer();
}

Wx::TextControl::~TextControl() = default;

void Wx::TextControl::applySkin(const GuiSkin& skin)
{
    SkinnableMixin<wxTextCtrl>::applySkin(skin);
    // wxWidgets repaints when one of its two colours changes, but does not know the disabled colour.
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
