// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Timer.h"

namespace Nolvex::Detail {

/// Logs how long the scope it lives in took, in ticks of the timer it is given, through DebugLogger in the
/// category "trace". Only developers see it: see isDevelopmentEnviro, which is asked at the scope's end.
class NOLVEXLIB_EXPORT TraceElapsedTime : private Noncopyable
{
public:
    /// The texts must outlive the object.
    TraceElapsedTime(Timer timer, const char* sourceFile, int line, const char* function);
    ~TraceElapsedTime();

private:
    Timer m_timer;
    const char* m_sourceFile;
    int m_line;
    const char* m_function;
};

} // namespace Nolvex::Detail
