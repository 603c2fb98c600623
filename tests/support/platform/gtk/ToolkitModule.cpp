// SPDX-License-Identifier: MIT
#include "support/NativeTraits.h"

bool Nolvex::Tests::toolkitKnowsItsModule()
{
    return true;
}
