// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Object.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/Tooltip.h"

#include <wx/weakref.h>

namespace Nolvex::Wx {

/// Second base of controls that can have a tooltip. The tooltip is made when it is first given a text; it
/// belongs to the control as its child window.
class NOLVEXLIBWX_EXPORT TooltipWindow : public Object
{
public:
    /// `window` is the control itself.
    explicit TooltipWindow(wxWindow* window);
    ~TooltipWindow() override;

    void setTooltip(const String& text);

    /// Null before the first `setTooltip`.
    Tooltip* tooltip() const { return m_tooltip.get(); }

private:
    wxWeakRef<Tooltip> m_tooltip;
    wxWindow* m_window;
};

} // namespace Nolvex::Wx
