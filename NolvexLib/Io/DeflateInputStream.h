// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/BinaryInputStream.h"

namespace Nolvex::Io {

/// Decompresses one run of zlib data (RFC 1950) from another stream.
///
/// Reading, and `eof` too, throws Exception if the data is broken, cut off, or needs a preset dictionary. The
/// checksum is compared at the end of the data, that is, by the read that returns 0 or by the `eof` that
/// returns true. The decompressed data can be a thousand times as large as the source: the caller has to set
/// a limit.
class NOLVEXLIB_EXPORT DeflateInputStream : public BinaryInputStream
{
public:
    /// `source` must outlive the stream. The stream reads ahead; at the end of the compressed data it puts
    /// the bytes that follow back into `source`.
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
