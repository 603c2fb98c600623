// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryOutputStream.h"

namespace Nolvex::Io {

/// Writes to another stream. A base class for streams that watch or change the bytes that pass through. The
/// caller owns the other stream, which must outlive this one.
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
