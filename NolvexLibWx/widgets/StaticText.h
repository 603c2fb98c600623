// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/platform/OwnWindowStaticText.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"

namespace Nolvex::Wx {

/// A label that paints itself and remembers its text as it was before wrapping, so that it can be wrapped
/// again to any width. A wxStaticText to everybody else.
///
/// The wxALIGN_* bits of the style place the text in both directions. All characters are shown: "&" marks no
/// accelerator, and ellipsizing styles do not shorten.
class NOLVEXLIBWX_EXPORT StaticText : public Platform::OwnWindowStaticText, public TooltipWindow
{
public:
    /// `size` in design units, wxDefaultSize for that of the text.
    StaticText(wxWindow* parent, int id, const String& label, unsigned int style = 0,
               Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~StaticText() override;

    void SetLabel(const wxString& text) override;

    /// Breaks the lines of the text last set where they get wider than `width` pixels; a negative width only
    /// takes the earlier breaks out.
    void Wrap(int width);

    /// The text last set, without the breaks that wrapping made.
    const String& unwrappedLabel() const { return m_label; }

private:
    void onPaint(wxPaintEvent& event);

    String m_label;
};

} // namespace Nolvex::Wx
