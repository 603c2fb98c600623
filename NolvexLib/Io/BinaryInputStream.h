// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Export.h"
#include "NolvexLib/Polymorphic.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Io {

/// A source of bytes. Every call may throw Exception, since the file or connection behind the stream may
/// fail.
class NOLVEXLIB_EXPORT BinaryInputStream : public Polymorphic
{
public:
    BinaryInputStream();
    ~BinaryInputStream() override;
    BinaryInputStream(const BinaryInputStream&) = delete;
    BinaryInputStream& operator=(const BinaryInputStream&) = delete;

    /// Makes `byte` the next byte to be read. Any number of bytes may be put back; the last one is read
    /// first.
    virtual void putBack(std::byte byte);

    /// Copies at most `count` bytes to `buffer`, beginning with bytes put back. Returns the number of bytes
    /// copied, which may be less than `count` before the end of the stream. 0 means the end, unless `count`
    /// is 0. A negative `count` is a programming error (StopException). After an exception the bytes put back
    /// are still there.
    std::int64_t read(void* buffer, std::int64_t count);

    /// Reads until `buffer` holds `count` bytes. Returns false if the stream ends earlier; `buffer` is filled
    /// in part then.
    [[nodiscard]] bool readExactly(void* buffer, std::int64_t count);

    /// True if no byte is left to read.
    bool eof();

protected:
    /// Copies 1 to `count` bytes to `buffer` and returns their number, or 0 at the end. `count` is positive.
    virtual std::int64_t readImpl(void* buffer, std::int64_t count) = 0;

    /// True if readImpl would return 0. Called only when no byte has been put back.
    virtual bool eofImpl() = 0;

private:
    std::int64_t copyPutBack(void* buffer, std::int64_t count) const;

    // The last element is read first.
    Array<std::byte> m_putBack;
};

} // namespace Nolvex::Io
