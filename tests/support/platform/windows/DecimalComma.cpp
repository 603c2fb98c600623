// SPDX-License-Identifier: MIT
#include "support/DecimalComma.h"

#include "NolvexLib/DecimalPoint.h"

#include <windows.h>

namespace Nolvex::Tests {

DecimalComma::DecimalComma() : m_former(1, decimalPointCharacter())
{
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L",");
}

DecimalComma::~DecimalComma()
{
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, m_former.c_str());
}

bool DecimalComma::isInEffect() const
{
    return decimalPointCharacter() == L',';
}

} // namespace Nolvex::Tests
