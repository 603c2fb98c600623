// SPDX-License-Identifier: MIT
// Tests headers whose numbers are missing, are not numbers, or contradict each other.
#include "HostilePeerFixture.h"

#include <string>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using HostileHeaderTest = HostilePeerFixture;

// Texts in place of a size, none of which is a valid size.
const std::vector<std::string>& badSizes()
{
    static const std::vector<std::string> sizes = {"",
                                                   " ",
                                                   "+0",
                                                   "+1",
                                                   " 1",
                                                   "1 ",
                                                   "\t1",
                                                   "1\n",
                                                   "1\r\n",
                                                   "0x10",
                                                   "0X1",
                                                   "10h",
                                                   "1e3",
                                                   "1E0",
                                                   "1.",
                                                   "1.0",
                                                   ".5",
                                                   "1,0",
                                                   "1_000",
                                                   "1'000",
                                                   "--1",
                                                   "-",
                                                   "+",
                                                   "- 1",
                                                   "1-",
                                                   "1+1",
                                                   "(1)",
                                                   "\"1\"",
                                                   "one",
                                                   "abc",
                                                   "12abc",
                                                   "abc12",
                                                   "1a",
                                                   "inf",
                                                   "-inf",
                                                   "nan",
                                                   "NaN",
                                                   "true",
                                                   "false",
                                                   "null",
                                                   "0b1",
                                                   "0o7",
                                                   "#1",
                                                   "$1",
                                                   "1%",
                                                   "1L",
                                                   "1u",
                                                   "1ull",
                                                   "\xD9\xA1",
                                                   "\xEF\xBC\x91",
                                                   "\xC2\xB2",
                                                   "\xE2\x91\xA0",
                                                   "\xC2\xA0"
                                                   "1",
                                                   "9223372036854775808",
                                                   "-9223372036854775809",
                                                   "18446744073709551616",
                                                   "18446744073709551617",
                                                   "99999999999999999999999",
                                                   "<b>1</b>",
                                                   "&lt;"};
    return sizes;
}

TEST_F(HostileHeaderTest, sizesInOddSpellings_areErrors)
{
    ASSERT_EQ(badSizes().size(), 60u);
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string type = element("DataType", "1");
    const std::string size = element("FileSize", "1");
    for (const std::string& bad : badSizes()) {
        peer.send(header(element("DataType", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "DataType " << bad;
        peer.send(header(type + element("FileSize", bad) + element("Compressed", "0")));
        EXPECT_EQ(read(socket), SocketResult::Error) << "FileSize " << bad;
        peer.send(header(type + size + element("Compressed", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "Compressed " << bad;
        peer.send(header(type + size + element("Compressed", "1") + element("CompressedSize", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "CompressedSize " << bad;
    }
    peer.send(message(0, 1));
    EXPECT_EQ(read(socket), SocketResult::Success);
}

TEST_F(HostileHeaderTest, typeThatWouldWrap_isAnError)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    peer.send(header(element("DataType", "4294967297")));
    EXPECT_EQ(read(socket), SocketResult::Error);
    peer.send(header(element("DataType", "4294967296")));
    EXPECT_EQ(read(socket), SocketResult::Error);
}

TEST_F(HostileHeaderTest, metadataMissingOrContradicting_isAnError)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string size = element("FileSize", "0");
    const std::string otherSize = element("FileSize", "1");
    const std::string compression = element("Compressed", "0");
    const std::string deflate = element("Compressed", "1");
    const std::string compressedSize = element("CompressedSize", "0");
    for (const std::string& metadata :
         {std::string(), size, compression, size + otherSize + compression, otherSize + size + compression,
          size + compression + deflate, size + deflate,
          size + deflate + compressedSize + element("CompressedSize", "1"),
          size + element("FileSize", "") + compression, size + element("FileSize", "x") + compression,
          size + element("FileSize", element("FileSize", "0")) + compression,
          element("x", size + compression)}) {
        peer.send(header(element("DataType", "1") + metadata));
        EXPECT_EQ(read(socket), SocketResult::Error) << metadata;
    }
    for (const std::string& metadata :
         {std::string(), size, compression, otherSize + element("FileSize", "2") + compression,
          element("FileSize", "-1") + compression}) {
        peer.send(header(element("DataType", "2") + metadata));
        EXPECT_EQ(read(socket), SocketResult::Error) << metadata;
    }
    peer.send(message(0, 1));
    EXPECT_EQ(read(socket), SocketResult::Success);
}

// A peer sends such a header when it passes on a received header and adds the metadata once more.
TEST_F(HostileHeaderTest, metadataTwiceButEqual_isAccepted)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string size = element("FileSize", "3");
    const std::string compression = element("Compressed", "0");
    const std::string nested = element("x", element("FileSize", "9"));
    for (const std::string& metadata : {size + compression + size + compression,
                                        size + element("FileSize", "003") + nested + compression}) {
        for (const char* type : {"1", "2"}) {
            peer.send(header(element("DataType", type) + metadata) + "abc");
            EXPECT_EQ(read(socket), SocketResult::Success) << metadata;
        }
    }
    const std::string packed = deflated("abc");
    const std::string compressedSize = element("CompressedSize", std::to_string(packed.size()));
    const std::string all = size + element("Compressed", "1") + compressedSize;
    peer.send(header(element("DataType", "1") + all + all) + packed);
    EXPECT_EQ(read(socket), SocketResult::Success);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
