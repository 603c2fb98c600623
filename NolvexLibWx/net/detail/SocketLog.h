// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"

namespace Nolvex::Wx::Legacy::Detail {

/// Logs the parts as one line. Does nothing outside of a development environment.
template<class... Parts>
void logForDevelopers(int line, const char* function, const Parts&... parts)
{
    if (!isDevelopmentEnviro())
        return;
    DebugLogger logger("net/LegacySockets", line, function, "socket");
    (logger << ... << parts);
}

} // namespace Nolvex::Wx::Legacy::Detail
