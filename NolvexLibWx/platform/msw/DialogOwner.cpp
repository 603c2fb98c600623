// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/DialogOwner.h"

namespace Nolvex {

WindowHandle Platform::dialogOwner(WindowHandle owner)
{
    return owner;
}

bool Platform::isPossibleParent(const wxWindow& /*wrapper*/)
{
    return true;
}

bool Platform::cancelOwnedDialogs(const wxWindow& /*dialog*/)
{
    return false;
}

} // namespace Nolvex
