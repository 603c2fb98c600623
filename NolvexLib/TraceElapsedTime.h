// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Timer.h"

namespace Nolvex::Detail {

/// Logs at the end of its scope how long the scope took, in ticks of the given timer. The message goes to
/// DebugLogger in the category "trace", and only if isDevelopmentEnviro() is true at that time.
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
