// SPDX-License-Identifier: MIT
#include "support/NativeTraits.h"

bool Nolvex::Tests::displayMayBeMissing()
{
    return true;
}

int Nolvex::Tests::depthOfBitmap(int asked)
{
    return asked == 1 ? 1 : 24;
}

bool Nolvex::Tests::taskbarNeedsSessionBus()
{
    return true;
}

bool Nolvex::Tests::needsMainThreadForDialogs()
{
    return true;
}
