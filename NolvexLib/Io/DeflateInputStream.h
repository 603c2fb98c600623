// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Decompresses one run of zlib data (RFC 1950) from another stream.
///
/// Data that is broken, cut off or in need of a preset dictionary raises Exception, also from `eof`. The
/// checksum is compared when the end is found, that is by the read that returns 0 or by `eof` returning true.
/// However small the source, its content may be a thousand times as large: callers set the limit.
class NOLVEXLIB_EXPORT DeflateInputStream : public BinaryInputStream
{
public:
    /// `source` must outlive the stream. More than needed is read from it ahead; when the end is found, what
    /// follows the compressed data is put back there.
    explicit DeflateInputStream(BinaryInputStream& source);
    ~DeflateInputStream() override;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    struct Decompressor;

    std::int64_t inflatePiece(std::byte* buffer, std::int64_t count);
    void refill();
    void end();

    BinaryInputStream& m_source;
    AutoPtr<Decompressor> m_decompressor;
};

} // namespace Nolvex::Io
