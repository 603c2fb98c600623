// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Rgb.h"

#include <cstddef>

namespace Nolvex::Picker {

/// The colours that the user has chosen last.
class RecentColors
{
public:
    static constexpr std::size_t MAX_COLORS = 12;

    /// The colours that all pickers of the process share.
    static RecentColors& shared();

    /// Puts the colour in front. A colour that is already listed, bit by bit, moves there; the oldest of too
    /// many colours is dropped.
    void add(const Rgb& color);

    /// The latest colour comes first.
    const Array<Rgb>& colors() const { return m_colors; }

private:
    Array<Rgb> m_colors;
};

} // namespace Nolvex::Picker
