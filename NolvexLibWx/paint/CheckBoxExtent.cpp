// SPDX-License-Identifier: MIT
#include "NolvexLibWx/paint/CheckBoxExtent.h"

#include "NolvexLibWx/DpiScaling.h"

#include <wx/control.h>

#include <algorithm>

namespace Nolvex {

wxSize checkBoxExtent(const wxControl& checkBox)
{
    const int box = Wx::scaleByDpi(CHECK_BOX_LENGTH);
    const wxString label = checkBox.GetLabelText();
    if (label.empty())
        return {box, box};
    const wxSize text = checkBox.GetTextExtent(label);
    // The focus mark starts one unit before the label and is two units wider than the label. Its line adds a
    // pixel, and rounding may move the line another pixel to the right.
    const int right = Wx::scaleByDpi(CHECK_BOX_LABEL_X - 1) + text.x + Wx::scaleByDpi(2) + 2;
    return {right, std::max(box, text.y)};
}

} // namespace Nolvex
