// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/platform/OwnWindowStaticText.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"

namespace Nolvex::Wx {

/// A wxStaticText that paints itself and remembers its text as it was before wrapping, so that it can be
/// wrapped to one width after another.
///
/// The wxALIGN_* bits of the style place the text horizontally and vertically. Every character is shown: "&"
/// marks no mnemonic, and the styles for ellipses have no effect.
class NOLVEXLIBWX_EXPORT StaticText : public Platform::OwnWindowStaticText, public TooltipWindow
{
public:
    /// `size` is in design units. wxDefaultSize stands for the size of the text.
    StaticText(wxWindow* parent, int id, const String& label, unsigned int style = 0,
               Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~StaticText() override;

    void SetLabel(const wxString& text) override;

    /// Breaks the lines of the text last set that are wider than `width` pixels. A negative width only
    /// removes the breaks of earlier calls.
    void Wrap(int width);

    /// Returns the text last set, without the breaks made by wrapping.
    const String& unwrappedLabel() const { return m_label; }

private:
    void onPaint(wxPaintEvent& event);

    String m_label;
};

} // namespace Nolvex::Wx
