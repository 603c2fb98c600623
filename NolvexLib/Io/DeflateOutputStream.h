// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

namespace Nolvex::Io {

/// Compresses what is written (zlib format, RFC 1950) into another stream.
class NOLVEXLIB_EXPORT DeflateOutputStream : public BinaryOutputStream
{
public:
    static constexpr int DEFAULT_LEVEL = -1;

    /// `target` must outlive the stream. `level` runs from 0 (stored) over 1 (fast) to 9 (small); another one
    /// is a programming error (StopException).
    explicit DeflateOutputStream(BinaryOutputStream& target, int level = DEFAULT_LEVEL);

    /// As `finish`, but failures stay unsaid: call `finish` to learn of them.
    ~DeflateOutputStream() override;

    /// Makes everything written so far readable at the other end and flushes the target. It costs some bytes
    /// but forgets nothing learned: every 65,536 bytes it is hardly noticed, after every few bytes it is.
    void flush() override;

    /// Ends the compressed data; without that it is incomplete. Does not flush the target. Writing afterwards
    /// is a programming error (StopException), finishing again does nothing. After the target failed once,
    /// the data cannot be completed and this raises Exception.
    void finish();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    struct Compressor;

    void run(int mode);
    void handOn(std::int64_t count);
    void throwUnlessOpen() const;

    BinaryOutputStream& m_target;
    AutoPtr<Compressor> m_compressor;
};

} // namespace Nolvex::Io
