// SPDX-License-Identifier: MIT
#include "NolvexLib/DecimalPoint.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace Nolvex {
namespace {

TEST(DecimalPointTest, decimalPointCharacter_isACharacterAndTouchesNoLocale)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    EXPECT_NE(decimalPointCharacter(), L'\0');
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), former);
}

// On some systems the locale of the process decides on the decimal point.
class DecimalPointLocaleTest : public testing::Test
{
public:
    ~DecimalPointLocaleTest() override { std::setlocale(LC_NUMERIC, m_former.c_str()); }

protected:
    void useLocale(const char* name)
    {
        if (std::setlocale(LC_NUMERIC, name) == nullptr)
            GTEST_SKIP() << "there is no locale " << name << " here";
    }

    std::string m_former = std::setlocale(LC_NUMERIC, nullptr);
};

TEST_F(DecimalPointLocaleTest, decimalPointCharacter_inPlainLocale_isAPoint)
{
    ASSERT_NO_FATAL_FAILURE(useLocale("POSIX"));
    if (!IsSkipped()) {
        EXPECT_EQ(decimalPointCharacter(), L'.');
    }
}

TEST_F(DecimalPointLocaleTest, decimalPointCharacter_inGermanLocale_isAComma)
{
    ASSERT_NO_FATAL_FAILURE(useLocale("de_DE.UTF-8"));
    if (!IsSkipped()) {
        EXPECT_EQ(decimalPointCharacter(), L',');
    }
}

TEST_F(DecimalPointLocaleTest, decimalPointCharacter_beyondAscii_isThatCharacter)
{
    ASSERT_NO_FATAL_FAILURE(useLocale("ps_AF.UTF-8"));
    if (!IsSkipped()) {
        EXPECT_EQ(decimalPointCharacter(), L'\u066B');
    }
}

} // namespace
} // namespace Nolvex
