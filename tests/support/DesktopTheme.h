// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

namespace Nolvex::Tests {

/// While an object of this class lives, the desktop has this theme as far as this program can tell.
class DesktopTheme : private Noncopyable
{
public:
    /// False on systems without themes, and while an environment variable dictates the theme.
    static bool canBeSet();

    /// True if the settings of the user ask for the dark variant of every theme.
    static bool isDarkPreferred();

    explicit DesktopTheme(const char* name);
    ~DesktopTheme();
};

} // namespace Nolvex::Tests
