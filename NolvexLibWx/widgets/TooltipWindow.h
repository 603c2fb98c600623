// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Object.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/Tooltip.h"

#include <wx/weakref.h>

namespace Nolvex::Wx {

/// Second base class of controls that can have a tooltip. The first call of setTooltip creates the tooltip, a
/// child window of the control, which destroys it.
class NOLVEXLIBWX_EXPORT TooltipWindow : public Object
{
public:
    /// `window` is the control itself.
    explicit TooltipWindow(wxWindow* window);
    ~TooltipWindow() override;

    void setTooltip(const String& text);

    /// Returns null before the first setTooltip, and when the tooltip has been destroyed.
    Tooltip* tooltip() const { return m_tooltip.get(); }

private:
    wxWeakRef<Tooltip> m_tooltip;
    wxWindow* m_window;
};

} // namespace Nolvex::Wx
