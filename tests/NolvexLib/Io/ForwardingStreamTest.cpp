// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/ForwardingBinaryInputStream.h"
#include "NolvexLib/Io/ForwardingBinaryOutputStream.h"

#include "Bytes.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

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

class FlushCountingStream : public MemoryOutputStream
{
public:
    void flush() override { ++flushes; }

    int flushes = 0;
};

TEST(ForwardingBinaryOutputStreamTest, writeAndFlush_goToTheTarget)
{
    FlushCountingStream target;
    ForwardingBinaryOutputStream stream(target);
    Tests::writeText(stream, "abc");
    EXPECT_EQ(target.bytes(), Tests::bytesOf("abc"));
    EXPECT_EQ(target.flushes, 0);
    stream.flush();
    EXPECT_EQ(target.flushes, 1);
}

} // namespace
} // namespace Nolvex::Io
