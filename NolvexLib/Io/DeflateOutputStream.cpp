// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateOutputStream.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/StopException.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <new>

namespace Nolvex::Io {

namespace {

/// Room for the end of a flush, which deflateBound does not count, and for the end of the run after it. Both
/// are shorter.
constexpr std::int64_t FLUSH_RESERVE = 32;

/// A piece ends when it has room for less input than this many bytes, or than this part of a short piece.
/// Filling the rest would take many small blocks.
constexpr int MIN_INPUT = 512;
constexpr int MIN_INPUT_DIVISOR = 128;

// zlib counts in 32 bits.
constexpr std::int64_t MAX_ZLIB_INPUT = std::numeric_limits<std::int32_t>::max();

} // namespace

struct DeflateOutputStream::Compressor : private Noncopyable
{
    enum class State
    {
        OPEN,
        FINISHED,
        FAILED,
    };

    explicit Compressor(int level)
    {
        if (::deflateInit(&zlib, level) != Z_OK)
            throw std::bad_alloc();
    }

    ~Compressor() { ::deflateEnd(&zlib); }

    z_stream zlib = {};
    State state = State::OPEN;
    // The number of bytes of input that still fit into the piece even if they cannot be compressed.
    std::int64_t inputRoom = MAX_ZLIB_INPUT;
    std::array<Bytef, 65536> output;
};

DeflateOutputStream::DeflateOutputStream(BinaryOutputStream& target, int level, Optional<int> restartInterval)
    : m_target(target), m_restartInterval(restartInterval)
{
    if (level < DEFAULT_LEVEL || level > Z_BEST_COMPRESSION ||
        (restartInterval && *restartInterval < MIN_RESTART_INTERVAL))
        Detail::throwStopException("Io/DeflateOutputStream", __LINE__);
    m_compressor = std::make_unique<Compressor>(level);
    measureRoom();
}

DeflateOutputStream::~DeflateOutputStream()
{
    try {
        if (m_compressor->state == Compressor::State::OPEN)
            finish();
    } catch (const std::exception&) {
        // The target lacks the end of the data. Callers who must know call finish.
    }
}

void DeflateOutputStream::flush()
{
    if (m_compressor->state == Compressor::State::FAILED)
        throwUnlessOpen();
    if (m_compressor->state == Compressor::State::OPEN) {
        run(Z_SYNC_FLUSH);
        measureRoom();
    }
    m_target.flush();
}

void DeflateOutputStream::finish()
{
    if (m_compressor->state == Compressor::State::FINISHED)
        return;
    throwUnlessOpen();
    run(Z_FINISH);
    m_compressor->state = Compressor::State::FINISHED;
}

void DeflateOutputStream::writeImpl(const void* buffer, std::int64_t count)
{
    throwUnlessOpen();
    const auto* bytes = static_cast<const Bytef*>(buffer);
    while (count > 0) {
        const std::int64_t piece = std::min(count, makeRoom());
        m_compressor->zlib.next_in = bytes;
        m_compressor->zlib.avail_in = static_cast<uInt>(piece);
        run(Z_NO_FLUSH);
        m_compressor->inputRoom -= piece;
        bytes += piece;
        count -= piece;
    }
}

std::int64_t DeflateOutputStream::makeRoom()
{
    if (!m_restartInterval)
        return MAX_ZLIB_INPUT;
    const int least = std::min(MIN_INPUT, *m_restartInterval / MIN_INPUT_DIVISOR);
    if (m_compressor->inputRoom < least) {
        // Ending the block shows how small the input so far has really become.
        run(Z_BLOCK);
        measureRoom();
    }
    if (m_compressor->inputRoom < least)
        restart();
    return m_compressor->inputRoom;
}

void DeflateOutputStream::measureRoom()
{
    if (!m_restartInterval)
        return;
    z_stream& zlib = m_compressor->zlib;
    const uLong room = static_cast<uLong>(*m_restartInterval) - zlib.total_out;
    const auto growth = static_cast<std::int64_t>(::deflateBound(&zlib, room) - room);
    m_compressor->inputRoom = static_cast<std::int64_t>(room) - growth - FLUSH_RESERVE;
}

void DeflateOutputStream::restart()
{
    run(Z_FINISH);
    m_compressor->output.fill(0);
    handOn(*m_restartInterval - static_cast<std::int64_t>(m_compressor->zlib.total_out));
    ::deflateReset(&m_compressor->zlib);
    measureRoom();
}

void DeflateOutputStream::run(int mode)
{
    z_stream& zlib = m_compressor->zlib;
    // zlib has taken all of the input if it leaves room in the output.
    do {
        zlib.next_out = m_compressor->output.data();
        zlib.avail_out = static_cast<uInt>(m_compressor->output.size());
        ::deflate(&zlib, mode);
        handOn(static_cast<std::int64_t>(m_compressor->output.size() - zlib.avail_out));
    } while (zlib.avail_out == 0);
}

void DeflateOutputStream::handOn(std::int64_t count)
{
    // The state stays FAILED if the target throws, since the bytes it did not take are lost.
    m_compressor->state = Compressor::State::FAILED;
    m_target.write(m_compressor->output.data(), count);
    m_compressor->state = Compressor::State::OPEN;
}

void DeflateOutputStream::throwUnlessOpen() const
{
    if (m_compressor->state == Compressor::State::FINISHED)
        Detail::throwStopException("Io/DeflateOutputStream", __LINE__);
    if (m_compressor->state == Compressor::State::FAILED)
        throw Exception("The compressed data is incomplete because an earlier part of it was not written.");
}

} // namespace Nolvex::Io
