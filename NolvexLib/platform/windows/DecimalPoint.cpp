// SPDX-License-Identifier: MIT
#include "NolvexLib/DecimalPoint.h"

#include <windows.h>

#include <array>

namespace Nolvex {

wchar_t decimalPointCharacter()
{
    // Windows allows three characters and a final zero.
    std::array<wchar_t, 4> point = {};
    const int length = ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, point.data(),
                                         static_cast<int>(point.size()));
    return length > 1 ? point[0] : L'.';
}

} // namespace Nolvex
