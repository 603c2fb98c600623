// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// Root of the classes that are used, and destroyed, through a base.
class NOLVEXLIB_EXPORT Polymorphic
{
public:
    Polymorphic() = default;
    virtual ~Polymorphic();

protected:
    // Copied only as part of a derived object: a copy through the base would slice.
    Polymorphic(const Polymorphic&) = default;
    Polymorphic(Polymorphic&&) = default;
    Polymorphic& operator=(const Polymorphic&) = default;
    Polymorphic& operator=(Polymorphic&&) = default;
};

} // namespace Nolvex
