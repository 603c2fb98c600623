// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryOutputStream.h"

namespace Nolvex::Io {

/// Another stream, owned by somebody else, who must outlive this one. A base for streams that watch or change
/// what passes.
class NOLVEXLIB_EXPORT ForwardingBinaryOutputStream : public BinaryOutputStream
{
public:
    explicit ForwardingBinaryOutputStream(BinaryOutputStream& target);
    ~ForwardingBinaryOutputStream() override;

    void flush() override;

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    BinaryOutputStream& m_target;
};

} // namespace Nolvex::Io
