// SPDX-License-Identifier: MIT
#include "support/PaintCount.h"

#include <wx/textctrl.h>

namespace Nolvex {

std::shared_ptr<const int> Tests::countPaintings(wxTextCtrl* text)
{
    const auto count = std::make_shared<int>(0);
    text->Bind(wxEVT_PAINT, [count](wxPaintEvent& event) {
        ++*count;
        event.Skip();
    });
    return count;
}

} // namespace Nolvex
