// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// Base of classes whose objects can be moved but not copied.
class NoncopyableMovable
{
public:
    NoncopyableMovable(const NoncopyableMovable&) = delete;
    NoncopyableMovable& operator=(const NoncopyableMovable&) = delete;

protected:
    NoncopyableMovable() = default;
    NoncopyableMovable(NoncopyableMovable&&) = default;
    NoncopyableMovable& operator=(NoncopyableMovable&&) = default;
    ~NoncopyableMovable() = default;
};

} // namespace Nolvex
