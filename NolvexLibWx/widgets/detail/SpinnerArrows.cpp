// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/SpinnerArrows.h"

#include <wx/sizer.h>

namespace Nolvex {

wxSizer* Wx::Detail::SpinnerArrows::make(wxWindow* spinner)
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    m_arrows = {new SpinnerArrow(spinner, true), new SpinnerArrow(spinner, false)};
    for (const wxWeakRef<SpinnerArrow>& arrow : m_arrows)
        column->Add(arrow, 0, 0, 0);
    return column;
}

Wx::Detail::SpinnerArrow* Wx::Detail::SpinnerArrows::held() const
{
    for (const wxWeakRef<SpinnerArrow>& arrow : m_arrows) {
        if (arrow && arrow->isHeld())
            return arrow;
    }
    return nullptr;
}

void Wx::Detail::SpinnerArrows::show(SpinnerArrow::Look look) const
{
    for (const wxWeakRef<SpinnerArrow>& arrow : m_arrows) {
        if (arrow)
            arrow->show(look);
    }
}

} // namespace Nolvex
