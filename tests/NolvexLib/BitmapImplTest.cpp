// SPDX-License-Identifier: MIT
#include "NolvexLib/BitmapImpl.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>

namespace Nolvex {
namespace {

using Bitmap = BitmapImpl<int>;

Bitmap numbered(std::int32_t width, std::int32_t height)
{
    Bitmap bitmap(width, height);
    for (std::size_t i = 0; i < bitmap.count(); ++i)
        bitmap.data()[i] = static_cast<int>(i);
    return bitmap;
}

TEST(BitmapImplTest, constructor_withoutSize_isEmpty)
{
    const Bitmap bitmap;
    EXPECT_TRUE(bitmap.isEmpty());
    EXPECT_EQ(bitmap.size(), (Pixel{0, 0}));
    EXPECT_EQ(bitmap.count(), 0u);
}

TEST(BitmapImplTest, constructor_fillsAllPixels)
{
    const Bitmap bitmap(3, 2, 7);
    EXPECT_EQ(bitmap.width(), 3);
    EXPECT_EQ(bitmap.height(), 2);
    EXPECT_EQ(bitmap.count(), 6u);
    EXPECT_FALSE(bitmap.isEmpty());
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(bitmap.data()[i], 7);
}

TEST(BitmapImplTest, constructor_withSizeBelowOne_isEmptyAndRemembersIt)
{
    for (const Pixel size : {Pixel{0, 5}, Pixel{5, 0}, Pixel{-3, -4}}) {
        const Bitmap bitmap(size.x, size.y);
        EXPECT_TRUE(bitmap.isEmpty());
        EXPECT_EQ(bitmap.size(), size);
    }
}

TEST(BitmapImplTest, constructor_withSizeBeyondMemory_raises)
{
    constexpr std::int32_t MAX_SIDE = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW(Bitmap(MAX_SIDE, MAX_SIDE), std::exception);
}

TEST(BitmapImplTest, rowAndAt_areRowMajorFromTheTop)
{
    Bitmap bitmap = numbered(3, 2);
    EXPECT_EQ(bitmap.row(1), bitmap.data() + 3);
    EXPECT_EQ(bitmap.at(2, 1), 5);
    bitmap.at(1, 0) = 100;
    EXPECT_EQ(bitmap.row(0)[1], 100);
    const Bitmap& constant = bitmap;
    EXPECT_EQ(constant.at(1, 0), 100);
    EXPECT_EQ(constant.row(1)[0], 3);
}

TEST(BitmapImplTest, at_outside_isAProgrammingError)
{
    const Bitmap bitmap(3, 2);
    for (const Pixel place : {Pixel{-1, 0}, Pixel{0, -1}, Pixel{3, 0}, Pixel{0, 2}})
        EXPECT_THROW(bitmap.at(place.x, place.y), StopException);
    EXPECT_THROW(Bitmap(-1, 5).at(-1, 0), StopException);
}

TEST(BitmapImplTest, comparison_needsSizeAndPixelsEqual)
{
    EXPECT_EQ(numbered(3, 2), numbered(3, 2));
    EXPECT_NE(numbered(3, 2), numbered(2, 3));
    EXPECT_NE(numbered(3, 2), Bitmap(3, 2));
}

TEST(BitmapImplTest, copy_isIndependent)
{
    const Bitmap original = numbered(3, 2);
    Bitmap copy = original;
    copy.at(0, 0) = 100;
    EXPECT_EQ(original, numbered(3, 2));
    copy = original;
    EXPECT_EQ(copy, original);
}

TEST(BitmapImplTest, move_leavesAnEmptyBitmapWithoutSize)
{
    Bitmap source = numbered(3, 2);
    Bitmap target = std::move(source);
    EXPECT_EQ(target, numbered(3, 2));
    // NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what is left is promised.
    EXPECT_EQ(source, Bitmap());
    EXPECT_THROW(source.at(0, 0), StopException);
    source = std::move(target);
    EXPECT_EQ(source, numbered(3, 2));
    EXPECT_EQ(target, Bitmap());
    // NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
}

TEST(BitmapImplTest, move_toItself_keepsThePixels)
{
    Bitmap bitmap = numbered(3, 2);
    Bitmap& same = bitmap;
    bitmap = std::move(same);
    EXPECT_EQ(bitmap, numbered(3, 2));
}

} // namespace
} // namespace Nolvex
