// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

#include <exception>
#include <string>

namespace Nolvex {

/// The core library throws this when something outside the program fails, such as a file or a stream. The
/// library NolvexLibWx catches it at its boundary and turns it into a return value.
class NOLVEXLIB_EXPORT Exception : public std::exception
{
public:
    /// `message` is a full sentence for the user, in UTF-8.
    explicit Exception(std::string message);
    ~Exception() override;

    const char* what() const noexcept override;

private:
    std::string m_message;
};

} // namespace Nolvex
