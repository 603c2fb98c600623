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

/// A text field with a skin. While the field is disabled it shows its value in the skin's `disabledText`
/// colour, with a bullet for every character if it has the style wxTE_PASSWORD. The Tab key passes over a
/// field that is read-only.
class NOLVEXLIBWX_EXPORT TextControl : public SkinnableMixin<wxTextCtrl>, public TooltipWindow
{
public:
    /// `size` is in design units; wxDefaultSize leaves the size to wxWidgets. The field has the default skin,
    /// but shows the system's colours until a skin is applied.
    TextControl(wxWindow* parent, int id, const String& value, unsigned int style = 0,
                Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~TextControl() override;

    void applySkin(const GuiSkin& skin) override;

    /// Depends on the style given at construction only, not on `SetEditable`.
    bool AcceptsFocusFromKeyboard() const override;

private:
    wxString visibleValue() const;
    void paintDisabled(wxDC& dc) const;

    std::unique_ptr<Platform::NativePaint> m_disabledPaint;
};

} // namespace Nolvex::Wx
