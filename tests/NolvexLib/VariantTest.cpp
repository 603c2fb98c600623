// SPDX-License-Identifier: MIT
#include "NolvexLib/Variant.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace Nolvex {
namespace {

using IntOrText = Variant<int, std::string>;

TEST(VariantTest, constructor_withoutValue_isEmpty)
{
    const IntOrText variant;
    EXPECT_TRUE(variant.isEmpty());
    EXPECT_EQ(variant.index(), 2u);
    EXPECT_EQ(IntOrText::EMPTY_INDEX, 2u);
}

TEST(VariantTest, constructor_fromAlternative_holdsIt)
{
    const IntOrText number = 5;
    EXPECT_EQ(number.index(), 0u);
    EXPECT_EQ(number.get<int>(), 5);
    IntOrText text = std::string("abc");
    EXPECT_EQ(text.index(), 1u);
    text.get<std::string>() += "d";
    EXPECT_EQ(*text.tryGet<std::string>(), "abcd");
}

TEST(VariantTest, get_ofAnotherAlternative_raises)
{
    IntOrText variant = 5;
    EXPECT_THROW(variant.get<std::string>(), std::bad_variant_access);
    EXPECT_THROW(std::as_const(variant).get<std::string>(), std::bad_variant_access);
    EXPECT_THROW(IntOrText().get<int>(), std::bad_variant_access);
}

TEST(VariantTest, tryGet_ofAnotherAlternative_isNull)
{
    IntOrText variant = 5;
    EXPECT_EQ(variant.tryGet<std::string>(), nullptr);
    EXPECT_EQ(std::as_const(variant).tryGet<std::string>(), nullptr);
    EXPECT_EQ(*std::as_const(variant).tryGet<int>(), 5);
}

TEST(VariantTest, reset_empties)
{
    IntOrText variant = 5;
    variant.reset();
    EXPECT_TRUE(variant.isEmpty());
    EXPECT_EQ(variant.tryGet<int>(), nullptr);
}

TEST(VariantTest, emplace_replacesTheContent)
{
    IntOrText variant = 5;
    EXPECT_EQ(variant.emplace<std::string>(3, 'x'), "xxx");
    EXPECT_EQ(variant.index(), 1u);
}

TEST(VariantTest, emplaceIndex_makesThatAlternativeDefault)
{
    IntOrText variant = 5;
    variant.emplaceIndex(1);
    EXPECT_EQ(variant.get<std::string>(), "");
    variant.emplaceIndex(0);
    EXPECT_EQ(variant.get<int>(), 0);
    variant.emplaceIndex(IntOrText::EMPTY_INDEX);
    EXPECT_TRUE(variant.isEmpty());
}

TEST(VariantTest, emplaceIndex_beyond_isAProgrammingErrorAndChangesNothing)
{
    IntOrText variant = 5;
    EXPECT_THROW(variant.emplaceIndex(3), StopException);
    EXPECT_EQ(variant.get<int>(), 5);
}

TEST(VariantTest, comparison_needsAlternativeAndValueEqual)
{
    EXPECT_EQ(IntOrText(5), IntOrText(5));
    EXPECT_NE(IntOrText(5), IntOrText(6));
    EXPECT_NE(IntOrText(5), IntOrText(std::string("5")));
    EXPECT_NE(IntOrText(0), IntOrText());
    EXPECT_NE(IntOrText(), IntOrText(0));
    EXPECT_EQ(IntOrText(), IntOrText());
}

struct FailingToCopy
{
    FailingToCopy() = default;

    FailingToCopy(const FailingToCopy&) { throw std::runtime_error("no copy"); }

    FailingToCopy& operator=(const FailingToCopy&) = default;

    friend bool operator==(const FailingToCopy&, const FailingToCopy&) = default;
};

TEST(VariantTest, emplace_thatRaises_leavesAnEmptyVariantLikeAnyOther)
{
    Variant<int, FailingToCopy> variant = 5;
    EXPECT_THROW(variant.emplace<FailingToCopy>(FailingToCopy()), std::runtime_error);
    EXPECT_TRUE(variant.isEmpty());
    EXPECT_EQ(variant.index(), 2u);
    EXPECT_TRUE(variant == (Variant<int, FailingToCopy>()));
    EXPECT_FALSE(variant == (Variant<int, FailingToCopy>(5)));
    variant.reset();
    EXPECT_TRUE(variant.isEmpty());
}

} // namespace
} // namespace Nolvex
