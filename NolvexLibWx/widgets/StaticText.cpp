// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/StaticText.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/dcclient.h>

namespace Nolvex {

Wx::StaticText::StaticText(wxWindow* parent, int id, const String& label, unsigned int style,
                           Flags<TextFlag> flags, wxSize size)
    : Platform::OwnWindowStaticText(parent, id, toWxString(label), wxDefaultPosition, scaleByDpi(size),
                                    static_cast<long>(style)),
      TooltipWindow(this)
{
    Bind(wxEVT_PAINT, &StaticText::onPaint, this);
    SetFont(setupStaticTextFont(GetFont(), flags));
    m_label = label;
}

Wx::StaticText::~StaticText() = default;

void Wx::StaticText::SetLabel(const wxString& text)
{
    m_label = toString(text);
    Platform::OwnWindowStaticText::SetLabel(text);
}

void Wx::StaticText::Wrap(int width)
{
    const String unwrapped = m_label;
    Platform::OwnWindowStaticText::SetLabel(toWxString(unwrapped));
    // wxStaticTextBase::Wrap() passes the wrapped text to SetLabel(), which stores it as the text of the
    // caller.
    wxStaticTextBase::Wrap(width);
    m_label = unwrapped;
}

void Wx::StaticText::onPaint(wxPaintEvent& /*event*/)
{
    constexpr int NO_ACCELERATOR = -1;
    wxPaintDC dc(this);
    const int alignment = static_cast<int>(GetWindowStyle());
    dc.DrawLabel(GetLabel(), wxRect(GetClientSize()), alignment, NO_ACCELERATOR);
}

} // namespace Nolvex
