// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>
#include <wx/utils.h>

#include <cmath>

namespace Nolvex::Tests {

/// Returns the scale for which the run of the tests was started: the DPI of the system divided by 96. The
/// tests hold at every scale.
inline double runScale()
{
    constexpr double PERCENT = 100;
    wxString percent;
    long value = 0;
    return wxGetEnv("NOLVEX_TEST_SCALE", &percent) && percent.ToLong(&value)
               ? static_cast<double>(value) / PERCENT
               : 1.0;
}

/// Returns the pixels that so many design units must become.
inline int scaledByRun(int units)
{
    return static_cast<int>(std::lround(units * runScale()));
}

} // namespace Nolvex::Tests
