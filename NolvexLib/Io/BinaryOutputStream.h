// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Polymorphic.h"

#include <cstdint>

namespace Nolvex::Io {

/// Where bytes go. Every call may raise Exception when what is behind the stream fails.
class NOLVEXLIB_EXPORT BinaryOutputStream : public Polymorphic
{
public:
    BinaryOutputStream();
    ~BinaryOutputStream() override;
    BinaryOutputStream(const BinaryOutputStream&) = delete;
    BinaryOutputStream& operator=(const BinaryOutputStream&) = delete;

    /// Hands on what the stream still holds. Here: nothing.
    virtual void flush();

    /// Takes all `count` bytes, or raises. A negative `count` is a programming error (StopException).
    void write(const void* buffer, std::int64_t count);

protected:
    /// Takes all `count` bytes, or raises. `count` is positive.
    virtual void writeImpl(const void* buffer, std::int64_t count) = 0;
};

} // namespace Nolvex::Io
