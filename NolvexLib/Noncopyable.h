// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// Base of classes whose objects can be neither copied nor moved.
class Noncopyable
{
public:
    Noncopyable(const Noncopyable&) = delete;
    Noncopyable& operator=(const Noncopyable&) = delete;

protected:
    Noncopyable() = default;
    ~Noncopyable() = default;
};

} // namespace Nolvex
