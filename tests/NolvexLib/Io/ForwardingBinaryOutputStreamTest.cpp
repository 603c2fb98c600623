// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/ForwardingBinaryOutputStream.h"

#include "Bytes.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

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
