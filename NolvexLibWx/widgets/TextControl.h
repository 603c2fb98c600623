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

/// A wxTextCtrl with a skin. While it is disabled, it shows its value in the `disabledText` colour of the
/// skin, in a wxTE_PASSWORD field as bullets. The Tab key skips a read-only field.
class NOLVEXLIBWX_EXPORT TextControl : public SkinnableMixin<wxTextCtrl>, public TooltipWindow
{
public:
    /// `size` is in design units. wxDefaultSize stands for the default size of a wxTextCtrl. The field stores
    /// the default skin but shows the colours of the system until a skin is applied.
    TextControl(wxWindow* parent, int id, const String& value, unsigned int style = 0,
                Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~TextControl() override;

    void applySkin(const GuiSkin& skin) override;

    /// Returns false if the style has wxTE_READONLY. A call of SetEditable() does not matter.
    bool AcceptsFocusFromKeyboard() const override;

private:
    wxString visibleValue() const;
    void paintDisabled(wxDC& dc) const;

    std::unique_ptr<Platform::NativePaint> m_disabledPaint;
};

} // namespace Nolvex::Wx
