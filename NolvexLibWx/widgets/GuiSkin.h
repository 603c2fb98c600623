// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// The nine colours of the controls. A control copies its skin during construction: later changes of the
/// original do not reach the control.
struct GuiSkin
{
    RgbBytes text;              ///< foreground of skinned windows, button text
    RgbBytes disabledText;      ///< text of disabled skinnable text controls, labels of disabled check boxes
    RgbBytes background;        ///< background of skinned windows and buttons
    RgbBytes darkBackground;    ///< the darker shade
    RgbBytes accentText;        ///< button text while toggled on
    RgbBytes accent;            ///< button background while toggled on
    RgbBytes pressedBackground; ///< button background while held down
    RgbBytes link;              ///< text of link-like buttons
    RgbBytes highlight;         ///< inner border line of a hovered, enabled bordered control

    friend constexpr bool operator==(const GuiSkin&, const GuiSkin&) = default;

    /// Returns the default skin of the process, a dark one, which the host may change. A change affects the
    /// controls that are constructed afterwards, and the highlight of all borders that are drawn afterwards.
    NOLVEXLIBWX_EXPORT static GuiSkin& DEFAULT();
};

} // namespace Nolvex::Wx
