// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

#include "Bytes.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

TEST(MemoryInputStreamTest, read_givesAllBytesThenTheEnd)
{
    const Array<std::byte> bytes = Tests::bytesOf(std::string_view("a\0c\xFF"
                                                                   "e",
                                                                   5));
    MemoryInputStream stream(bytes);
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(Tests::readAll(stream, 2), std::string("a\0c\xFF"
                                                     "e",
                                                     5));
    EXPECT_TRUE(stream.eof());
}

TEST(MemoryInputStreamTest, read_ofNoBytes_isTheEnd)
{
    MemoryInputStream stream({});
    EXPECT_TRUE(stream.eof());
    char buffer = 0;
    EXPECT_EQ(stream.read(&buffer, 1), 0);
}

TEST(MemoryInputStreamTest, read_ofMoreThanThereIs_leavesTheRestOfTheBufferAlone)
{
    const Array<std::byte> bytes = Tests::bytesOf("ab");
    MemoryInputStream stream(bytes);
    char buffer[4] = {'-', '-', '-', '-'};
    EXPECT_EQ(stream.read(buffer, 4), 2);
    EXPECT_EQ(std::string(buffer, 4), "ab--");
}

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
