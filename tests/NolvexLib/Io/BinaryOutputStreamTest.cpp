// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/BinaryOutputStream.h"

#include "Bytes.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace Nolvex::Io {
namespace {

static_assert(std::has_virtual_destructor_v<BinaryOutputStream>);
static_assert(std::is_base_of_v<Polymorphic, BinaryOutputStream>);

class RecordingStream : public BinaryOutputStream
{
public:
    Array<std::string> writes;

protected:
    void writeImpl(const void* buffer, std::int64_t count) override
    {
        writes.emplace_back(static_cast<const char*>(buffer), static_cast<std::size_t>(count));
    }
};

static_assert(!std::is_copy_constructible_v<RecordingStream> &&
              !std::is_move_constructible_v<RecordingStream>);
static_assert(!std::is_copy_assignable_v<RecordingStream> && !std::is_move_assignable_v<RecordingStream>);

TEST(BinaryOutputStreamTest, write_handsTheBytesOn)
{
    RecordingStream stream;
    stream.write("abc", 3);
    stream.write("de", 1);
    stream.flush();
    EXPECT_EQ(stream.writes, (Array<std::string>{"abc", "d"}));
}

TEST(BinaryOutputStreamTest, write_ofNothing_isNotHandedOn)
{
    RecordingStream stream;
    stream.write(nullptr, 0);
    EXPECT_TRUE(stream.writes.empty());
}

TEST(BinaryOutputStreamTest, write_ofNegativeCount_isAProgrammingError)
{
    RecordingStream stream;
    EXPECT_THROW(stream.write("abc", -1), StopException);
    EXPECT_TRUE(stream.writes.empty());
}

} // namespace
} // namespace Nolvex::Io
