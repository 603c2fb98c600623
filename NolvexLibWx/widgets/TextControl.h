// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/widgets/SkinnableMixin.h"
#include "NolvexLibWx/widgets/TooltipWindow.h"

#include <wx/textctrl.h>

#include <memory>

class WXDLLIMPEXP_FWD_CORE wxDC;

namespace Nolvex::Platform {

class NativePaint;

} // namespace Nolvex::Platform

namespace Nolvex::Wx {

/// A text field with a skin. While it is disabled it shows its value in the skin's `disabledText` colour,
/// that of a wxTE_PASSWORD field as a bullet a character; one that is read-only is left out when tabbing. A
/// wxTextCtrl to everybody else.
class NOLVEXLIBWX_EXPORT TextControl : public SkinnableMixin<wxTextCtrl>, public TooltipWindow
{
public:
    /// `size` in design units, wxDefaultSize for the toolkit's. Has the default skin but shows the system's
    /// colours until a skin is applied.
    TextControl(wxWindow* parent, int id, const String& value, unsigned int style = 0,
                Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~TextControl() override;

    void applySkin(const GuiSkin& skin) override;

    /// By the style given at construction: `SetEditable` does not matter here.
    bool AcceptsFocusFromKeyboard() const override;

private:
    wxString visibleValue() const;
    void paintDisabled(wxDC& dc) const;

    std::unique_ptr<Platform::NativePaint> m_disabledPaint;
};

} // namespace Nolvex::Wx
