// SPDX-License-Identifier: MIT
#include "NolvexLib/Exception.h"

#include <utility>

namespace Nolvex {

Exception::Exception(std::string message) : m_message(std::move(message)) {}

Exception::~Exception() = default;

const char* Exception::what() const noexcept
{
    return m_message.c_str();
}

} // namespace Nolvex
