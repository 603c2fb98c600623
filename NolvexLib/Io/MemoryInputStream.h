// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Reads bytes in memory, which the caller owns and which must outlive the stream.
class NOLVEXLIB_EXPORT MemoryInputStream : public BinaryInputStream
{
public:
    explicit MemoryInputStream(ArrayView<const std::byte> bytes);
    ~MemoryInputStream() override;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    // The bytes that have not been read yet.
    ArrayView<const std::byte> m_bytes;
};

} // namespace Nolvex::Io
