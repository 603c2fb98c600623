// SPDX-License-Identifier: MIT
#include "NolvexLib/TraceElapsedTime.h"

#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"

#include <exception>

namespace Nolvex::Detail {

TraceElapsedTime::TraceElapsedTime(Timer timer, const char* sourceFile, int line, const char* function)
    : m_timer(timer), m_sourceFile(sourceFile), m_line(line), m_function(function)
{}

TraceElapsedTime::~TraceElapsedTime()
{
    // The time is taken first, so that it does not include the logging.
    const std::int64_t elapsed = m_timer.getElapsed();
    try {
        if (isDevelopmentEnviro())
            DebugLogger(m_sourceFile, m_line, m_function, "trace")
                << m_function << ": " << elapsed << " ticks of 1/" << m_timer.ticksPerSecond() << " s";
    } catch (const std::exception&) {
        // A lost measurement is no reason to fail.
    }
}

} // namespace Nolvex::Detail
