// SPDX-License-Identifier: MIT
#include "support/InputContexts.h"

namespace Nolvex::Tests {

// The windows of a thread share the context that Windows has made for the thread.
bool InputContexts::areMade()
{
    return false;
}

InputContexts::InputContexts() = default;

InputContexts::~InputContexts() = default;

int InputContexts::inUse() const
{
    return 0;
}

} // namespace Nolvex::Tests
