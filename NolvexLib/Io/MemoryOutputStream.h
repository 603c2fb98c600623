// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

#include <cstddef>

namespace Nolvex::Io {

/// Bytes into an array that grows with them. What is written must not lie in that array itself.
class NOLVEXLIB_EXPORT MemoryOutputStream : public BinaryOutputStream
{
public:
    /// Into an array of its own.
    MemoryOutputStream();

    /// Behind what `target` holds, with room made for `reserve` more bytes. `target` must outlive the stream.
    explicit MemoryOutputStream(Array<std::byte>& target, std::size_t reserve = 0);
    ~MemoryOutputStream() override;

    /// Index in the array where the next byte goes.
    std::int64_t tellp() const { return static_cast<std::int64_t>(m_target.size()); }

    const Array<std::byte>& bytes() const { return m_target; }

    /// Moves the bytes out; the stream goes on with an empty array.
    Array<std::byte> takeBytes();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    Array<std::byte> m_own;
    Array<std::byte>& m_target;
};

} // namespace Nolvex::Io
