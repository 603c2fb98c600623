// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

#include <cstddef>

namespace Nolvex::Io {

/// Appends bytes to an array. The bytes must not lie in that array themselves.
class NOLVEXLIB_EXPORT MemoryOutputStream : public BinaryOutputStream
{
public:
    /// Appends to an array of its own.
    MemoryOutputStream();

    /// Appends to `target`, which must outlive the stream, and reserves memory for `reserve` more bytes.
    explicit MemoryOutputStream(Array<std::byte>& target, std::size_t reserve = 0);
    ~MemoryOutputStream() override;

    /// The index that the next byte will have in the array.
    std::int64_t tellp() const { return static_cast<std::int64_t>(m_target.size()); }

    const Array<std::byte>& bytes() const { return m_target; }

    /// Moves the bytes out and leaves an empty array, to which the stream goes on appending.
    Array<std::byte> takeBytes();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    Array<std::byte> m_own;
    Array<std::byte>& m_target;
};

} // namespace Nolvex::Io
