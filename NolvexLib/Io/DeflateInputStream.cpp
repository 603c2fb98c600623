// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateInputStream.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Noncopyable.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <new>

namespace Nolvex::Io {

struct DeflateInputStream::Decompressor : private Noncopyable
{
    Decompressor()
    {
        if (::inflateInit(&zlib) != Z_OK)
            throw std::bad_alloc();
    }

    ~Decompressor() { ::inflateEnd(&zlib); }

    z_stream zlib = {};
    bool ended = false;
    std::array<Bytef, 16384> input;
};

DeflateInputStream::DeflateInputStream(BinaryInputStream& source)
    : m_source(source), m_decompressor(std::make_unique<Decompressor>())
{}

DeflateInputStream::~DeflateInputStream() = default;

std::int64_t DeflateInputStream::readImpl(void* buffer, std::int64_t count)
{
    auto* const bytes = static_cast<std::byte*>(buffer);
    std::int64_t done = 0;
    while (done < count && !m_decompressor->ended)
        done += inflatePiece(bytes + done, count - done);
    return done;
}

bool DeflateInputStream::eofImpl()
{
    std::byte next = {};
    if (readImpl(&next, 1) == 0)
        return true;
    BinaryInputStream::putBack(next);
    return false;
}

std::int64_t DeflateInputStream::inflatePiece(std::byte* buffer, std::int64_t count)
{
    // zlib counts in 32 bits.
    const auto room =
        static_cast<uInt>(std::min<std::int64_t>(count, std::numeric_limits<std::int32_t>::max()));
    z_stream& zlib = m_decompressor->zlib;
    zlib.next_out = reinterpret_cast<Bytef*>(buffer);
    zlib.avail_out = room;
    switch (::inflate(&zlib, Z_NO_FLUSH)) {
    case Z_OK:
        break;
    case Z_STREAM_END:
        end();
        break;
    case Z_BUF_ERROR:
        // zlib has used up its input.
        refill();
        break;
    case Z_MEM_ERROR:
        throw std::bad_alloc();
    default:
        throw Exception("The compressed data is broken.");
    }
    return static_cast<std::int64_t>(room - zlib.avail_out);
}

void DeflateInputStream::refill()
{
    auto& input = m_decompressor->input;
    const std::int64_t count = m_source.read(input.data(), static_cast<std::int64_t>(input.size()));
    if (count == 0)
        throw Exception("The compressed data ends too early.");
    m_decompressor->zlib.next_in = input.data();
    m_decompressor->zlib.avail_in = static_cast<uInt>(count);
}

void DeflateInputStream::end()
{
    m_decompressor->ended = true;
    const z_stream& zlib = m_decompressor->zlib;
    for (uInt i = zlib.avail_in; i > 0; --i)
        m_source.putBack(static_cast<std::byte>(zlib.next_in[i - 1]));
}

} // namespace Nolvex::Io
