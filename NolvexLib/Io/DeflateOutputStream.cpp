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
    std::array<Bytef, 65536> output;
};

DeflateOutputStream::DeflateOutputStream(BinaryOutputStream& target, int level) : m_target(target)
{
    if (level < DEFAULT_LEVEL || level > Z_BEST_COMPRESSION)
        Detail::throwStopException("Io/DeflateOutputStream", __LINE__);
    m_compressor = std::make_unique<Compressor>(level);
}

DeflateOutputStream::~DeflateOutputStream()
{
    try {
        if (m_compressor->state == Compressor::State::OPEN)
            finish();
    } catch (const std::exception&) {
        // The target lacks the end of the data; who must know calls finish.
    }
}

void DeflateOutputStream::flush()
{
    if (m_compressor->state == Compressor::State::FAILED)
        throwUnlessOpen();
    if (m_compressor->state == Compressor::State::OPEN)
        run(Z_SYNC_FLUSH);
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
    // zlib counts in 32 bits.
    constexpr std::int64_t MOST = std::numeric_limits<std::int32_t>::max();
    while (count > 0) {
        const std::int64_t piece = std::min(count, MOST);
        m_compressor->zlib.next_in = bytes;
        m_compressor->zlib.avail_in = static_cast<uInt>(piece);
        run(Z_NO_FLUSH);
        bytes += piece;
        count -= piece;
    }
}

void DeflateOutputStream::run(int mode)
{
    z_stream& zlib = m_compressor->zlib;
    // Room left in the output means that all of the input was taken.
    do {
        zlib.next_out = m_compressor->output.data();
        zlib.avail_out = static_cast<uInt>(m_compressor->output.size());
        ::deflate(&zlib, mode);
        handOn(static_cast<std::int64_t>(m_compressor->output.size() - zlib.avail_out));
    } while (zlib.avail_out == 0);
}

void DeflateOutputStream::handOn(std::int64_t count)
{
    // Stays so when the target raises: what it did not take is lost.
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
