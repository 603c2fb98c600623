// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Polymorphic.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Io {

/// Where bytes come from. Every call may raise Exception when what is behind the stream fails.
class NOLVEXLIB_EXPORT BinaryInputStream : public Polymorphic
{
public:
    BinaryInputStream();
    ~BinaryInputStream() override;
    BinaryInputStream(const BinaryInputStream&) = delete;
    BinaryInputStream& operator=(const BinaryInputStream&) = delete;

    /// Puts a byte in front of what is left to read. Any number may be put back; the last one is read first.
    virtual void putBack(std::byte byte);

    /// Copies at most `count` bytes to `buffer`, those put back first, and returns how many; that may be
    /// fewer than there are. 0 is the end, except for a `count` of 0. A negative `count` is a programming
    /// error (StopException). A call that raises takes none of the bytes put back.
    std::int64_t read(void* buffer, std::int64_t count);

    /// Reads until `count` bytes are there; false when the stream ended before, with `buffer` filled in part.
    [[nodiscard]] bool readExactly(void* buffer, std::int64_t count);

    /// True when nothing is left to read.
    bool eof();

protected:
    /// Copies 1 to `count` bytes to `buffer` and returns how many, 0 at the end. `count` is positive.
    virtual std::int64_t readImpl(void* buffer, std::int64_t count) = 0;

    /// True when readImpl would return 0; asked only while no byte is put back.
    virtual bool eofImpl() = 0;

private:
    std::int64_t copyPutBack(void* buffer, std::int64_t count) const;

    // The next byte to read is the last one.
    Array<std::byte> m_putBack;
};

} // namespace Nolvex::Io
