// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Reads from another stream, and puts bytes back there. A base class for streams that watch or change the
/// bytes that pass through. The caller owns the other stream, which must outlive this one.
class NOLVEXLIB_EXPORT ForwardingBinaryInputStream : public BinaryInputStream
{
public:
    explicit ForwardingBinaryInputStream(BinaryInputStream& source);
    ~ForwardingBinaryInputStream() override;

    void putBack(std::byte byte) override;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    BinaryInputStream& m_source;
};

} // namespace Nolvex::Io
