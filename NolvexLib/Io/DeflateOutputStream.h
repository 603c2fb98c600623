// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Optional.h"

#include <cstdint>

namespace Nolvex::Io {

/// Compresses what is written (zlib format, RFC 1950) into another stream.
///
/// With a restart interval the output consists of pieces of equal length that can be decompressed one by one.
/// Each piece holds a whole run of zlib data and is filled up with zero bytes; only the last piece ends with
/// its run. That makes ordinary data up to three percent longer, and data of nothing but zeros, which becomes
/// very short, by half. The memory that the stream needs depends neither on the length of the data nor on the
/// interval.
class NOLVEXLIB_EXPORT DeflateOutputStream : public BinaryOutputStream
{
public:
    static constexpr int DEFAULT_LEVEL = -1;

    /// The shortest restart interval, in bytes.
    static constexpr int MIN_RESTART_INTERVAL = 256;

    /// `target` must outlive the stream. `level` is 0 (stored), or 1 (fast) to 9 (small). `restartInterval`
    /// is the length of a piece in bytes of output; without it there is a single run. Another level or an
    /// interval below MIN_RESTART_INTERVAL is a programming error (StopException).
    explicit DeflateOutputStream(BinaryOutputStream& target, int level = DEFAULT_LEVEL,
                                 Optional<int> restartInterval = {});

    /// Does what `finish` does, but ignores failures. Call `finish` to learn of them.
    ~DeflateOutputStream() override;

    /// Passes on enough output for a reader to decompress everything written so far, and flushes the target.
    /// Each call adds some bytes to the output, which matters only after every few bytes of input. A piece
    /// may still lack its end afterwards.
    void flush() override;

    /// Ends the compressed data, which is incomplete before. Does not flush the target. Writing afterwards is
    /// a programming error (StopException); finishing again does nothing. Throws Exception if the target has
    /// failed before, since the data cannot be completed then.
    void finish();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    struct Compressor;

    std::int64_t makeRoom();
    void measureRoom();
    void restart();
    void run(int mode);
    void handOn(std::int64_t count);
    void throwUnlessOpen() const;

    BinaryOutputStream& m_target;
    Optional<int> m_restartInterval;
    AutoPtr<Compressor> m_compressor;
};

} // namespace Nolvex::Io
