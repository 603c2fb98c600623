// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <clocale>
#include <string>

namespace Nolvex::Tests {

/// While an object of this class lives, numbers have a decimal point although the user's language may have a
/// comma. On Windows the C locale has always a point, and the library asks the settings of the user.
class DecimalPoint : private Noncopyable
{
public:
    DecimalPoint() { std::setlocale(LC_NUMERIC, "C"); }

    ~DecimalPoint() { std::setlocale(LC_NUMERIC, m_before.c_str()); }

private:
    const std::string m_before = std::setlocale(LC_NUMERIC, nullptr);
};

} // namespace Nolvex::Tests
