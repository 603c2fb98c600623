// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

#include <exception>
#include <string>

namespace Nolvex {

/// What the core library raises when something outside the program fails: a file, a stream, a format.
/// Caught at the library's boundary and turned into a return value.
class NOLVEXLIB_EXPORT Exception : public std::exception
{
public:
    /// `message` is UTF-8 text, a full sentence fit for a user.
    explicit Exception(std::string message);
    ~Exception() override;

    const char* what() const noexcept override;

private:
    std::string m_message;
};

} // namespace Nolvex
