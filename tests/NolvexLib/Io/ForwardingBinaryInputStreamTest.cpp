// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/ForwardingBinaryInputStream.h"

#include "Bytes.h"
#include "NolvexLib/Io/MemoryInputStream.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

TEST(ForwardingBinaryInputStreamTest, read_takesFromTheSource)
{
    const Array<std::byte> bytes = Tests::bytesOf("abcdef");
    MemoryInputStream source(bytes);
    ForwardingBinaryInputStream stream(source);
    char buffer[2] = {};
    EXPECT_EQ(stream.read(buffer, 2), 2);
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(Tests::readAll(source), "cdef");
    EXPECT_TRUE(stream.eof());
}

TEST(ForwardingBinaryInputStreamTest, putBack_isReadFromEitherStream)
{
    MemoryInputStream source({});
    ForwardingBinaryInputStream stream(source);
    stream.putBack(std::byte{'b'});
    stream.putBack(std::byte{'a'});
    EXPECT_FALSE(stream.eof());
    char byte = 0;
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_EQ(byte, 'a');
    EXPECT_EQ(Tests::readAll(source), "b");
}

} // namespace
} // namespace Nolvex::Io
