// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Bytes in memory, owned by somebody else, who must outlive the stream.
class NOLVEXLIB_EXPORT MemoryInputStream : public BinaryInputStream
{
public:
    explicit MemoryInputStream(ArrayView<const std::byte> bytes);
    ~MemoryInputStream() override;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    // What is left to read.
    ArrayView<const std::byte> m_bytes;
};

} // namespace Nolvex::Io
