// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Polymorphic.h"

#include <cstdint>

namespace Nolvex::Io {

/// A destination of bytes. Every call may throw Exception, since the file or connection behind the stream may
/// fail.
class NOLVEXLIB_EXPORT BinaryOutputStream : public Polymorphic
{
public:
    BinaryOutputStream();
    ~BinaryOutputStream() override;
    BinaryOutputStream(const BinaryOutputStream&) = delete;
    BinaryOutputStream& operator=(const BinaryOutputStream&) = delete;

    /// Passes on the bytes that the stream still holds back. The base class holds none.
    virtual void flush();

    /// Takes all `count` bytes or throws. A negative `count` is a programming error (StopException).
    void write(const void* buffer, std::int64_t count);

protected:
    /// Takes all `count` bytes or throws. `count` is positive.
    virtual void writeImpl(const void* buffer, std::int64_t count) = 0;
};

} // namespace Nolvex::Io
