// SPDX-License-Identifier: MIT
#include "NolvexLib/Array.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "support/PairedRatio.h"

#define ZLIB_CONST
#include <zlib.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <string>

namespace Nolvex::Benchmarks {

namespace {

constexpr std::size_t PIECE = 65536;
constexpr std::size_t SIZE = std::size_t{1} << 21;

struct Data
{
    std::string content;
    Array<std::byte> compressed;
};

/// Returns a list of entries and a picture of noisy slopes, in alternation.
std::string makeContent()
{
    std::minstd_rand random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same content every time
    std::string content;
    while (content.size() < SIZE) {
        for (int i = 0; i < 5000; ++i)
            content += "entry " + std::to_string(random() % 100'003) + " of the list, state " +
                       std::to_string(random() % 5) + "\n";
        for (std::size_t i = 0; i < 200'000; ++i)
            content += static_cast<char>(i % 1000 / 4 + random() % 4);
    }
    content.resize(SIZE);
    return content;
}

std::shared_ptr<Data> makeData()
{
    auto data = std::make_shared<Data>();
    data->content = makeContent();
    data->compressed.reserve(SIZE);
    return data;
}

void takeOutput(z_stream& zlib, int mode, Array<std::byte>& target)
{
    static std::array<std::byte, PIECE> output;
    do {
        zlib.next_out = reinterpret_cast<Bytef*>(output.data());
        zlib.avail_out = static_cast<uInt>(output.size());
        ::deflate(&zlib, mode);
        target.insert(target.end(), output.begin(), output.end() - zlib.avail_out);
    } while (zlib.avail_out == 0);
}

void compressByZlib(Data& data)
{
    data.compressed.clear();
    z_stream zlib{};
    ::deflateInit(&zlib, Z_DEFAULT_COMPRESSION);
    for (std::size_t at = 0; at < data.content.size(); at += PIECE) {
        zlib.next_in = reinterpret_cast<const Bytef*>(data.content.data() + at);
        zlib.avail_in = static_cast<uInt>(std::min(PIECE, data.content.size() - at));
        takeOutput(zlib, Z_NO_FLUSH, data.compressed);
    }
    takeOutput(zlib, Z_FINISH, data.compressed);
    ::deflateEnd(&zlib);
    benchmark::ClobberMemory();
}

void compressByStream(Data& data, Optional<int> restartInterval)
{
    data.compressed.clear();
    Io::MemoryOutputStream target(data.compressed);
    Io::DeflateOutputStream stream(target, Io::DeflateOutputStream::DEFAULT_LEVEL, restartInterval);
    for (std::size_t at = 0; at < data.content.size(); at += PIECE)
        stream.write(data.content.data() + at,
                     static_cast<std::int64_t>(std::min(PIECE, data.content.size() - at)));
    stream.finish();
    benchmark::ClobberMemory();
}

Contest compressionContest(Optional<int> restartInterval)
{
    const auto data = makeData();
    return {[data] { compressByZlib(*data); },
            [data, restartInterval] { compressByStream(*data, restartInterval); }};
}

const Figure DEFLATE("deflate", 0.97, [] { return compressionContest({}); });
const Figure DEFLATE_RESTARTS("deflate_restarts", 0.97, [] { return compressionContest(int{PIECE}); });

} // namespace

} // namespace Nolvex::Benchmarks
