// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

#include <string>

namespace Nolvex {

/// A programming error: an invalid enumeration value, a missing hook. It is meant to end the program, so it
/// shares no base with Exception, nor with std::exception: no handler for failing streams or files can
/// swallow it by accident.
class NOLVEXLIB_EXPORT StopException
{
public:
    StopException(std::string file, int line);
    ~StopException();
    StopException(const StopException&);
    StopException(StopException&&) noexcept;
    StopException& operator=(const StopException&);
    StopException& operator=(StopException&&) noexcept;

    /// The source file's name without folder root and extension, for example "widgets/StaticLine".
    const std::string& file() const noexcept { return m_file; }

    int line() const noexcept { return m_line; }

private:
    std::string m_file;
    int m_line;
};

namespace Detail {

/// Raises a StopException that names the place of the programming error. Does not return.
[[noreturn]] NOLVEXLIB_EXPORT void throwStopException(const char* file, int line);

} // namespace Detail

} // namespace Nolvex
