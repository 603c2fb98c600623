// SPDX-License-Identifier: MIT
#include "NolvexLib/StopException.h"

#include <utility>

namespace Nolvex {

StopException::StopException(std::string file, int line) : m_file(std::move(file)), m_line(line) {}

StopException::~StopException() = default;
StopException::StopException(const StopException&) = default;
StopException::StopException(StopException&&) noexcept = default;
StopException& StopException::operator=(const StopException&) = default;
StopException& StopException::operator=(StopException&&) noexcept = default;

void Detail::throwStopException(const char* file, int line)
{
    throw StopException(file, line);
}

} // namespace Nolvex
