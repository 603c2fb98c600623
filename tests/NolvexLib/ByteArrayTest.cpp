// SPDX-License-Identifier: MIT
#include "NolvexLib/ByteArray.h"

#include "NolvexLib/ArrayView.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace Nolvex {
namespace {

constexpr std::byte A{1};
constexpr std::byte B{2};
constexpr std::byte C{3};

TEST(ByteArrayTest, constructor_withoutArguments_isEmpty)
{
    const ByteArray array;
    EXPECT_EQ(array.size(), 0u);
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(array.begin(), array.end());
}

TEST(ByteArrayTest, constructor_withBytes_holdsThem)
{
    const ByteArray array = {A, B};
    EXPECT_EQ(array.size(), 2u);
    EXPECT_EQ(array[0], A);
    EXPECT_EQ(array[1], B);
}

TEST(ByteArrayTest, resize_keepsWhatFits)
{
    ByteArray array = {A, B, C};
    array.resize(1'000'000);
    EXPECT_EQ(array.size(), 1'000'000u);
    EXPECT_EQ(array[2], C);
    array.resize(2);
    EXPECT_TRUE(array == (ByteArray{A, B}));
    EXPECT_GE(array.capacity(), 1'000'000u);
}

TEST(ByteArrayTest, resize_toAsMuchAsThereIsNone_changesNothing)
{
#ifdef NOLVEX_SANITIZED
    GTEST_SKIP() << "A sanitizer ends the program instead.";
#endif
    ByteArray array = {A, B};
    // The variable is volatile, because the compiler would otherwise warn that the size is impossible.
    volatile std::size_t tooMuch = std::numeric_limits<std::ptrdiff_t>::max();
    EXPECT_THROW(array.resize(tooMuch), std::bad_alloc);
    EXPECT_TRUE(array == (ByteArray{A, B}));
}

TEST(ByteArrayTest, append_growsBySteps)
{
    ByteArray array;
    std::size_t growths = 0;
    for (int i = 0; i < 100'000; ++i) {
        const std::size_t capacity = array.capacity();
        array.push_back(static_cast<std::byte>(i & 0xFF));
        growths += array.capacity() != capacity ? 1 : 0;
    }
    EXPECT_EQ(array.size(), 100'000u);
    EXPECT_EQ(array[99'999], static_cast<std::byte>(99'999 & 0xFF));
    EXPECT_LT(growths, 40u);
}

TEST(ByteArrayTest, copy_isIndependent)
{
    ByteArray array = {A, B};
    ByteArray copy = array;
    array[0] = C;
    EXPECT_EQ(copy[0], A);
    copy = array;
    EXPECT_TRUE(copy == array);
    const ByteArray& same = copy;
    copy = same;
    EXPECT_TRUE(copy == array);
}

TEST(ByteArrayTest, move_takesTheMemory)
{
    ByteArray array = {A, B};
    const std::byte* const data = array.data();
    ByteArray moved = std::move(array);
    EXPECT_EQ(moved.data(), data);
    ByteArray assigned = {C};
    assigned = std::move(moved);
    EXPECT_EQ(assigned.data(), data);
    EXPECT_TRUE(moved.empty()); // NOLINT(bugprone-use-after-move): that is the promise
}

TEST(ByteArrayTest, clear_keepsTheMemory)
{
    ByteArray array = {A, B};
    array.clear();
    EXPECT_TRUE(array.empty());
    EXPECT_GE(array.capacity(), 2u);
}

TEST(ByteArrayTest, equality_comparesSizesAndBytes)
{
    EXPECT_TRUE(ByteArray() == ByteArray());
    EXPECT_FALSE((ByteArray{A}) == (ByteArray{A, B}));
    EXPECT_FALSE((ByteArray{A}) == (ByteArray{B}));
}

TEST(ByteArrayTest, view_showsTheBytes)
{
    const ByteArray array = {A, B};
    const ArrayView<const std::byte> view = array;
    EXPECT_EQ(view.size(), 2u);
    EXPECT_EQ(view.data(), array.data());
}

} // namespace
} // namespace Nolvex
