// SPDX-License-Identifier: MIT
#include "NolvexLib/Expected.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Nolvex {
namespace {

using IntOrText = Expected<int, std::string>;

Expected<int, std::string> parseDigit(char c)
{
    if (c < '0' || c > '9')
        return Unexpected{std::string("no digit")};
    return c - '0';
}

TEST(ExpectedTest, constructor_fromValue_holdsIt)
{
    IntOrText expected = parseDigit('7');
    EXPECT_TRUE(expected.hasValue());
    EXPECT_TRUE(static_cast<bool>(expected));
    EXPECT_EQ(expected.value(), 7);
    *expected = 8;
    EXPECT_EQ(*std::as_const(expected), 8);
}

TEST(ExpectedTest, constructor_fromUnexpected_holdsTheError)
{
    const IntOrText expected = parseDigit('x');
    EXPECT_FALSE(expected.hasValue());
    EXPECT_FALSE(static_cast<bool>(expected));
    EXPECT_EQ(expected.error(), "no digit");
}

TEST(ExpectedTest, value_whereThereIsAnError_raises)
{
    IntOrText expected = Unexpected{std::string("failed")};
    EXPECT_THROW(expected.value(), std::bad_variant_access);
    EXPECT_THROW(*std::as_const(expected), std::bad_variant_access);
    EXPECT_THROW(IntOrText(Unexpected{std::string()}).value(), std::bad_variant_access);
}

TEST(ExpectedTest, error_whereThereIsAValue_raises)
{
    const IntOrText expected = 5;
    EXPECT_THROW(expected.error(), std::bad_variant_access);
}

TEST(ExpectedTest, constructor_withValueAndErrorOfOneType_tellsThemApart)
{
    const Expected<int, int> value = 1;
    const Expected<int, int> error = Unexpected{2};
    EXPECT_EQ(value.value(), 1);
    EXPECT_EQ(error.error(), 2);
}

TEST(ExpectedTest, constructor_convertsTheError)
{
    const IntOrText expected = Unexpected{"literal"};
    EXPECT_EQ(expected.error(), "literal");
}

TEST(ExpectedTest, value_ofTemporary_isMovedOut)
{
    Expected<std::unique_ptr<int>, std::string> expected = std::make_unique<int>(5);
    const std::unique_ptr<int> taken = *std::move(expected);
    EXPECT_EQ(*taken, 5);
}

TEST(ExpectedTest, arrow_reachesTheValue)
{
    Expected<std::string, int> expected = std::string("abc");
    expected->push_back('d');
    EXPECT_EQ(std::as_const(expected)->size(), 4u);
}

} // namespace
} // namespace Nolvex
