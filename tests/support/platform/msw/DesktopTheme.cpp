// SPDX-License-Identifier: MIT
#include "support/DesktopTheme.h"

namespace Nolvex::Tests {

// The themes of Windows belong to all programs of the user.
bool DesktopTheme::canBeSet()
{
    return false;
}

bool DesktopTheme::isDarkPreferred()
{
    return false;
}

DesktopTheme::DesktopTheme(const char* /*name*/) {}

DesktopTheme::~DesktopTheme() = default;

} // namespace Nolvex::Tests
