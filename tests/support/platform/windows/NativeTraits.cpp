// SPDX-License-Identifier: MIT
#include "support/NativeTraits.h"

bool Nolvex::Tests::displayMayBeMissing()
{
    return false;
}
