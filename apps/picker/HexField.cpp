// SPDX-License-Identifier: MIT
#include "apps/picker/HexField.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/StringConversions.h"
#include "apps/picker/HexColor.h"
#include "apps/picker/ScopedFlag.h"

#include <utility>

namespace Nolvex::Picker {

namespace {

const wxSize SIZE(100, 18); // design units
const wxColour BAD_BACKGROUND(150, 30, 30);
const wxColour BAD_TEXT(255, 255, 255);
const wchar_t* const EXPLANATION = L"Write a colour as #rgb, #rrggbb or #rrggbbaa.";

} // namespace

HexField::HexField(wxWindow* parent, const Rgb& color, Function<void(const Rgb&)> onChange)
    : TextControl(parent, wxID_ANY, hexColor(color), wxBORDER_NONE, {}, SIZE),
      m_color(color),
      m_onChange(std::move(onChange))
{
    setTooltip(EXPLANATION);
    Wx::setAccessibleName(*this, L"Hexadecimal colour");
    HexField::applySkin(skin());
    Bind(wxEVT_TEXT, &HexField::onText, this);
    Bind(wxEVT_KILL_FOCUS, &HexField::onFocusLost, this);
}

HexField::~HexField() = default;

void HexField::setColor(const Rgb& color)
{
    m_color = color;
    if (m_typing)
        return;
    ChangeValue(Wx::toWxString(hexColor(color)));
    mark(false);
}

void HexField::applySkin(const Wx::GuiSkin& skin)
{
    TextControl::applySkin(skin);
    if (!m_bad)
        return;
    SetBackgroundColour(BAD_BACKGROUND);
    SetForegroundColour(BAD_TEXT);
}

void HexField::mark(bool bad)
{
    if (m_bad == bad)
        return;
    m_bad = bad;
    applySkin(skin());
    setTooltip(bad ? String(L"This is no colour. ") + EXPLANATION : String(EXPLANATION));
    Refresh();
}

void HexField::onText(wxCommandEvent& /*event*/)
{
    const Optional<Rgb> typed = parseHexColor(Wx::toString(GetValue()));
    mark(!typed);
    if (!typed)
        return;
    m_color = *typed;
    const ScopedFlag typing(this, m_typing);
    m_onChange(*typed);
}

void HexField::onFocusLost(wxFocusEvent& event)
{
    event.Skip();
    if (m_bad)
        setColor(m_color);
}

} // namespace Nolvex::Picker
