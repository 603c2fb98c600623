// SPDX-License-Identifier: MIT
#include "NolvexLib/Flags.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

enum class Letter : std::uint32_t
{
    NONE = 0,
    A = 1,
    B = 2,
    A_AND_B = 3,
    Z = 0x80000000,
};

TEST(FlagsTest, constructor_withoutFlags_isEmpty)
{
    EXPECT_TRUE(Flags<Letter>().isEmpty());
    EXPECT_TRUE(Flags<Letter>{}.isEmpty());
    EXPECT_EQ(Flags<Letter>(Letter::NONE).bits(), 0u);
}

TEST(FlagsTest, constructor_ofSeveralFlags_hasTheirBits)
{
    EXPECT_EQ((Flags<Letter>{Letter::A, Letter::Z}).bits(), 0x80000001u);
    EXPECT_EQ(Flags<Letter>(Letter::B).bits(), 2u);
    EXPECT_EQ(Flags<Letter>::fromBits(12).bits(), 12u);
}

TEST(FlagsTest, has_needsEveryBitOfTheFlag)
{
    EXPECT_TRUE(Flags<Letter>(Letter::A_AND_B).has(Letter::A));
    EXPECT_TRUE((Flags<Letter>{Letter::A, Letter::B}).has(Letter::A_AND_B));
    EXPECT_FALSE(Flags<Letter>(Letter::A).has(Letter::A_AND_B));
    EXPECT_FALSE(Flags<Letter>(Letter::A).has(Letter::B));
}

TEST(FlagsTest, set_addsAndTakesAwayOnlyTheFlag)
{
    Flags<Letter> flags = Letter::Z;
    flags.set(Letter::A_AND_B);
    EXPECT_EQ(flags.bits(), 0x80000003u);
    flags.set(Letter::A, false);
    EXPECT_EQ(flags.bits(), 0x80000002u);
}

TEST(FlagsTest, operators_uniteAndIntersect)
{
    const Flags<Letter> a = Letter::A;
    const Flags<Letter> both = Letter::A_AND_B;
    EXPECT_EQ(a | Letter::B, both);
    EXPECT_EQ(both & Letter::B, Letter::B);
    EXPECT_NE(a, both);
    Flags<Letter> flags = a;
    flags |= Letter::Z;
    EXPECT_EQ(flags.bits(), 0x80000001u);
    flags &= both;
    EXPECT_EQ(flags, a);
}

} // namespace
} // namespace Nolvex
