// SPDX-License-Identifier: MIT
#include "support/KeypadEnter.h"

#include <windows.h>

void Nolvex::Tests::pressKeypadEnter()
{
    // Windows tells the two Enter keys apart by this flag.
    keybd_event(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY, 0);
    keybd_event(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP, 0);
}
