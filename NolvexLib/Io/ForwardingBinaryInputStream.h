// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Another stream, owned by somebody else, who must outlive this one. Bytes put back go there as well. A base
/// for streams that watch or change what passes.
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
