// SPDX-License-Identifier: MIT
#include "support/TouchPad.h"

// Windows sends turns of the wheel in place of pinches.
bool Nolvex::Tests::pinchTouchPad(wxWindow* /*window*/, const std::vector<double>& /*scales*/,
                                  PinchEnd /*end*/)
{
    return false;
}

bool Nolvex::Tests::pinchTouchScreen(wxWindow* /*window*/, int /*distance*/, int /*lastDistance*/)
{
    return false;
}
