// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/widgets/detail/SpinnerArrow.h"

#include <wx/weakref.h>

#include <array>

class WXDLLIMPEXP_FWD_CORE wxSizer;

namespace Nolvex::Wx::Detail {

/// The two arrows of a Spinner, each of which may be destroyed before the spinner.
class SpinnerArrows : private Noncopyable
{
public:
    /// Makes the arrows, one above the other.
    wxSizer* make(wxWindow* spinner);

    // The following three functions return null if there is no such arrow.

    SpinnerArrow* up() const { return m_arrows[0]; }

    SpinnerArrow* down() const { return m_arrows[1]; }

    SpinnerArrow* held() const;

    void show(SpinnerArrow::Look look) const;

private:
    std::array<wxWeakRef<SpinnerArrow>, 2> m_arrows;
};

} // namespace Nolvex::Wx::Detail
