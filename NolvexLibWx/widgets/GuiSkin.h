// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx {

/// The nine colours of the controls. Controls copy a skin when they are constructed; later changes of the
/// original do not reach them.
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

    /// The process-wide default, which the host may change: every later construction that copies it sees the
    /// change, and so does every border drawn afterwards. Dark at load.
    NOLVEXLIBWX_EXPORT static GuiSkin& DEFAULT();
};

} // namespace Nolvex::Wx
