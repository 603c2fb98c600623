// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/MemoryOutputStream.h"

#include "Bytes.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

TEST(MemoryOutputStreamTest, write_growsTheOwnArray)
{
    MemoryOutputStream stream;
    EXPECT_EQ(stream.tellp(), 0);
    Tests::writeText(stream, "abc");
    Tests::writeText(stream, std::string_view("\0d", 2));
    EXPECT_EQ(stream.tellp(), 5);
    EXPECT_EQ(stream.bytes(), Tests::bytesOf(std::string_view("abc\0d", 5)));
}

TEST(MemoryOutputStreamTest, write_intoGivenArray_comesBehindWhatItHolds)
{
    Array<std::byte> bytes = Tests::bytesOf("ab");
    MemoryOutputStream stream(bytes, 100);
    EXPECT_GE(bytes.capacity(), 102u);
    EXPECT_EQ(stream.tellp(), 2);
    Tests::writeText(stream, "cd");
    EXPECT_EQ(stream.tellp(), 4);
    EXPECT_EQ(bytes, Tests::bytesOf("abcd"));
    EXPECT_EQ(&stream.bytes(), &bytes);
}

TEST(MemoryOutputStreamTest, takeBytes_leavesAnEmptyArrayToWriteTo)
{
    MemoryOutputStream stream;
    Tests::writeText(stream, "abc");
    EXPECT_EQ(stream.takeBytes(), Tests::bytesOf("abc"));
    EXPECT_EQ(stream.tellp(), 0);
    Tests::writeText(stream, "d");
    EXPECT_EQ(stream.bytes(), Tests::bytesOf("d"));
}

} // namespace
} // namespace Nolvex::Io
