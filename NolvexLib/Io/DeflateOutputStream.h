// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Optional.h"

#include <cstdint>

namespace Nolvex::Io {

/// Compresses what is written (zlib format, RFC 1950) into another stream.
///
/// Told to restart, it makes more than one run of zlib data: the output is cut into pieces of equal length,
/// and each of them begins a run of its own, holds all of it and goes on with zero bytes to its end. Only the
/// last piece ends with its run. So a reader who gets hold of one piece alone can decompress it. That makes
/// ordinary data up to three percent longer, and zeros, of which little is left anyway, by half. Memory
/// depends neither on the length of the data nor on that of the pieces.
class NOLVEXLIB_EXPORT DeflateOutputStream : public BinaryOutputStream
{
public:
    static constexpr int DEFAULT_LEVEL = -1;

    /// The shortest piece that can be asked for, in bytes.
    static constexpr int LEAST_RESTART_INTERVAL = 256;

    /// `target` must outlive the stream. `level` runs from 0 (stored) over 1 (fast) to 9 (small). With a
    /// `restartInterval`, the length of a piece in bytes of output counted from where the stream began, each
    /// piece can be decompressed alone; without one there is a single run. Another level or a shorter
    /// interval than LEAST_RESTART_INTERVAL is a programming error (StopException).
    explicit DeflateOutputStream(BinaryOutputStream& target, int level = DEFAULT_LEVEL,
                                 Optional<int> restartInterval = {});

    /// As `finish`, but failures stay unsaid: call `finish` to learn of them.
    ~DeflateOutputStream() override;

    /// Makes everything written so far readable at the other end and flushes the target. It costs some bytes
    /// but forgets nothing learned: every 65,536 bytes it is hardly noticed, after every few bytes it is. A
    /// piece may still lack its end afterwards.
    void flush() override;

    /// Ends the compressed data; without that it is incomplete. Does not flush the target. Writing afterwards
    /// is a programming error (StopException), finishing again does nothing. After the target failed once,
    /// the data cannot be completed and this raises Exception.
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
