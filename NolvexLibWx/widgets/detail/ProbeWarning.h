// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/colour.h>

namespace Nolvex::Wx::Detail {

/// The warning of a PixelProbe. The text stays red whatever the skin. The background is the text colour or
/// the background colour of the skin, whichever differs more from the red in brightness.
class ProbeWarning : public StaticText
{
public:
    ProbeWarning(wxWindow* parent, const String& text);
    ~ProbeWarning() override;

    /// Both functions are told the colour of a skin.
    bool SetBackgroundColour(const wxColour& colour) override;
    bool SetForegroundColour(const wxColour& colour) override;

private:
    bool showReadably();

    wxColour m_skinBackground;
    wxColour m_skinText;
};

} // namespace Nolvex::Wx::Detail
