// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Polymorphic.h"

namespace Nolvex {

/// Root of the polymorphic classes whose objects can be neither copied nor moved.
class NOLVEXLIB_EXPORT Object : public Polymorphic, private Noncopyable
{
public:
    Object() = default;
    ~Object() override;
};

} // namespace Nolvex
