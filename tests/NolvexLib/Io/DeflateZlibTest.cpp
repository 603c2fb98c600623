// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/DeflateOutputStream.h"

#include "DeflateSamples.h"

#define ZLIB_CONST
#include <zlib.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace Nolvex::Io {
namespace {

constexpr std::size_t INTERVAL = 65536;

std::string bareCompress(std::string_view text)
{
    std::string bytes(::compressBound(static_cast<uLong>(text.size())), '\0');
    auto size = static_cast<uLongf>(bytes.size());
    EXPECT_EQ(::compress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                         reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size())),
              Z_OK);
    bytes.resize(size);
    return bytes;
}

// Returns the content of the single run at the start of the bytes.
std::string bareDecompress(ArrayView<const std::byte> bytes)
{
    std::string text;
    std::array<Bytef, 16384> output{};
    z_stream zlib{};
    EXPECT_EQ(::inflateInit(&zlib), Z_OK);
    zlib.next_in = reinterpret_cast<const Bytef*>(bytes.data());
    zlib.avail_in = static_cast<uInt>(bytes.size());
    int result = Z_OK;
    while (result == Z_OK) {
        zlib.next_out = output.data();
        zlib.avail_out = static_cast<uInt>(output.size());
        result = ::inflate(&zlib, Z_NO_FLUSH);
        text.append(output.begin(), output.end() - zlib.avail_out);
    }
    ::inflateEnd(&zlib);
    EXPECT_EQ(result, Z_STREAM_END);
    return text;
}

class DeflateZlibTest : public testing::TestWithParam<std::size_t>
{};

TEST_P(DeflateZlibTest, singleRun_isWhatZlibMakes)
{
    for (const std::string& text : {Tests::documentText(GetParam()), Tests::incompressibleText(GetParam())})
        EXPECT_EQ(Tests::textOf(Tests::compress(text)), bareCompress(text));
}

TEST_P(DeflateZlibTest, eachPiece_decompressesAloneWithZlib)
{
    for (const std::string& text : {std::string(GetParam(), '\0'), Tests::documentText(GetParam()),
                                    Tests::incompressibleText(GetParam())}) {
        const Array<std::byte> bytes =
            Tests::compress(text, DeflateOutputStream::DEFAULT_LEVEL, int{INTERVAL});
        std::string back;
        for (std::size_t at = 0; at < bytes.size(); at += INTERVAL)
            back += bareDecompress(
                ArrayView<const std::byte>(bytes).subspan(at, std::min(INTERVAL, bytes.size() - at)));
        EXPECT_EQ(back, text);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, DeflateZlibTest, testing::Values(0, 1, 65535, 65536, 65537, 1'000'000));

} // namespace
} // namespace Nolvex::Io
