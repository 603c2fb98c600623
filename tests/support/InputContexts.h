// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

namespace Nolvex::Tests {

/// Knows the contexts of the user's input method that GTK has made while the object lives.
class InputContexts : private Noncopyable
{
public:
    /// False on systems where a window has no such context of its own.
    static bool areMade();

    InputContexts();
    ~InputContexts();

    /// Returns how many of the contexts still have an owner or still send characters.
    int inUse() const;
};

} // namespace Nolvex::Tests
