// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"

namespace Nolvex::Wx::Legacy::Detail {

/// Logs the parts, one behind the other, where developers run the program; nowhere else.
template<class... Parts>
void logForDevelopers(int line, const char* function, const Parts&... parts)
{
    if (!isDevelopmentEnviro())
        return;
    DebugLogger logger("net/LegacySockets", line, function, "socket");
    (logger << ... << parts);
}

} // namespace Nolvex::Wx::Legacy::Detail
