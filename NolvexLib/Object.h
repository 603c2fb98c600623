// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Polymorphic.h"

namespace Nolvex {

/// Root of the classes whose instances have an identity: polymorphic, neither copied nor moved.
class NOLVEXLIB_EXPORT Object : public Polymorphic, private Noncopyable
{
public:
    Object() = default;
    ~Object() override;
};

} // namespace Nolvex
