// SPDX-License-Identifier: MIT
#include "support/NativeTraits.h"

bool Nolvex::Tests::displayMayBeMissing()
{
    return false;
}

int Nolvex::Tests::depthOfBitmap(int asked)
{
    return asked;
}

bool Nolvex::Tests::taskbarNeedsSessionBus()
{
    return false;
}

bool Nolvex::Tests::needsMainThreadForDialogs()
{
    return false;
}
