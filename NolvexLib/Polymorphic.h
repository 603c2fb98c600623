// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// Root of the classes whose objects are used, and destroyed, through a base class.
class NOLVEXLIB_EXPORT Polymorphic
{
public:
    Polymorphic() = default;
    virtual ~Polymorphic();

protected:
    // Protected, because copying an object through its base class would copy only a part of it.
    Polymorphic(const Polymorphic&) = default;
    Polymorphic(Polymorphic&&) = default;
    Polymorphic& operator=(const Polymorphic&) = default;
    Polymorphic& operator=(Polymorphic&&) = default;
};

} // namespace Nolvex
