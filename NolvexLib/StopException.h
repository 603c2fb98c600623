// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

#include <string>

namespace Nolvex {

/// Reports a programming error, such as an invalid enumeration value or a missing hook, and is meant to end
/// the program. It shares no base class with Exception and std::exception, so that no handler for failing
/// files or streams swallows it by accident.
class NOLVEXLIB_EXPORT StopException
{
public:
    StopException(std::string file, int line);
    ~StopException();
    StopException(const StopException&);
    StopException(StopException&&) noexcept;
    StopException& operator=(const StopException&);
    StopException& operator=(StopException&&) noexcept;

    /// The name of the source file below the folder of its library, without the extension:
    /// "widgets/StaticLine".
    const std::string& file() const noexcept { return m_file; }

    int line() const noexcept { return m_line; }

private:
    std::string m_file;
    int m_line;
};

namespace Detail {

/// Throws a StopException that names the place of the programming error.
[[noreturn]] NOLVEXLIB_EXPORT void throwStopException(const char* file, int line);

} // namespace Detail

} // namespace Nolvex
