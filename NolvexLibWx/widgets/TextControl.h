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

/// A wxTextCtrl with a skin. A disabled field shows its value in the `disabledText` colour of the skin, and a
/// disabled wxTE_PASSWORD field shows bullets. The Tab key skips a read-only field.
class NOLVEXLIBWX_EXPORT TextControl : public SkinnableMixin<wxTextCtrl>, public TooltipWindow
{
public:
    /// `size` is in design units. wxDefaultSize stands for the default size of a wxTextCtrl. The field stores
    /// the default skin but shows the colours of the system until a skin is applied.
    TextControl(wxWindow* parent, int id, const String& value, unsigned int style = 0,
                Flags<TextFlag> flags = {}, wxSize size = wxDefaultSize);
    ~TextControl() override;

    void applySkin(const GuiSkin& skin) override;

    /// Returns false if the style has wxTE_READONLY. Calls of SetEditable() make no difference.
    bool AcceptsFocusFromKeyboard() const override;

private:
    wxString visibleValue() const;
    void paintDisabled(wxDC& dc) const;

    std::unique_ptr<Platform::NativePaint> m_disabledPaint;
};

} // namespace Nolvex::Wx
