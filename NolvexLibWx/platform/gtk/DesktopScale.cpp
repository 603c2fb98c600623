// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DesktopScale.h"

#include "NolvexLibWx/platform/gtk/ScreenResolution.h"

#include <wx/defs.h>

#include <algorithm>
#include <cmath>

namespace Nolvex {

namespace {

// At a smaller scale, one design unit would be no pixel at all. Beyond the largest, lengths of thousands of
// design units would no longer fit into an int.
constexpr double MIN_SCALE = 0.5;
constexpr double MAX_SCALE = 100.0;

} // namespace

// wxWindow::FromDIP does nothing on GTK, which scales windows by whole factors itself. Text can be larger
// than these factors make it, and what surrounds the text grows with it here.
int Platform::scaleToDesktop(int units)
{
    if (units == wxDefaultCoord)
        return wxDefaultCoord;
    const double scale = std::clamp(screenResolution() / DESIGN_RESOLUTION, MIN_SCALE, MAX_SCALE);
    return static_cast<int>(std::lround(units * scale));
}

} // namespace Nolvex
