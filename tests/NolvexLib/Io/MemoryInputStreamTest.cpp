// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/MemoryInputStream.h"

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

} // namespace
} // namespace Nolvex::Io
