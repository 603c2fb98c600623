// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/String.h"

namespace Nolvex::Viewer {

/// Where commands and tools tell the user what they have done.
struct Messages
{
    /// Tells an outcome.
    Function<void(const String&)> report;
    /// Tells why something was not done, in a way that cannot be overlooked.
    Function<void(const String&)> complain;
};

} // namespace Nolvex::Viewer
