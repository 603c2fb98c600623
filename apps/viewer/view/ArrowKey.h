// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"

#include <wx/defs.h>

namespace Nolvex::Viewer {

/// Returns the direction in which an arrow points, or (0, 0) for other keys.
inline Pixel directionOfArrow(int key)
{
    switch (key) {
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
        return {-1, 0};
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
        return {1, 0};
    case WXK_UP:
    case WXK_NUMPAD_UP:
        return {0, -1};
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
        return {0, 1};
    default:
        return {0, 0};
    }
}

} // namespace Nolvex::Viewer
