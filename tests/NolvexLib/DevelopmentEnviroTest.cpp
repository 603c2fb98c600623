// SPDX-License-Identifier: MIT
#include "NolvexLib/DevelopmentEnviro.h"

#include "platform/Environment.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace Nolvex {
namespace {

// Each question is asked in a process of its own: the environment is read only once.
class DevelopmentEnviroDeathTest : public testing::Test
{
protected:
    DevelopmentEnviroDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

[[noreturn]] void exitWithAnswer(const char* variable)
{
    Tests::setEnvironmentVariable("NOLVEX_DEVELOPMENT", variable);
    std::_Exit(isDevelopmentEnviro() ? 1 : 0);
}

TEST_F(DevelopmentEnviroDeathTest, isDevelopmentEnviro_withVariable_isTrue)
{
    EXPECT_EXIT(exitWithAnswer("1"), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(exitWithAnswer("yes"), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(exitWithAnswer("00"), testing::ExitedWithCode(1), "");
}

TEST_F(DevelopmentEnviroDeathTest, isDevelopmentEnviro_withEmptyOrZeroVariable_isFalse)
{
    EXPECT_EXIT(exitWithAnswer(""), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(exitWithAnswer("0"), testing::ExitedWithCode(0), "");
}

TEST_F(DevelopmentEnviroDeathTest, isDevelopmentEnviro_askedAgain_doesNotReadAgain)
{
    const auto askTwice = [] {
        Tests::setEnvironmentVariable("NOLVEX_DEVELOPMENT", "1");
        const bool first = isDevelopmentEnviro();
        Tests::setEnvironmentVariable("NOLVEX_DEVELOPMENT", "0");
        std::_Exit(first && isDevelopmentEnviro() ? 1 : 0);
    };
    EXPECT_EXIT(askTwice(), testing::ExitedWithCode(1), "");
}

TEST_F(DevelopmentEnviroDeathTest, setDevelopmentEnviro_beforeTheFirstQuestion_outweighsTheVariable)
{
    const auto setAndAsk = [] {
        Tests::setEnvironmentVariable("NOLVEX_DEVELOPMENT", "1");
        setDevelopmentEnviro(false);
        std::_Exit(isDevelopmentEnviro() ? 1 : 0);
    };
    EXPECT_EXIT(setAndAsk(), testing::ExitedWithCode(0), "");
}

TEST(DevelopmentEnviroTest, setDevelopmentEnviro_isTheAnswerFromThenOn)
{
    const bool former = isDevelopmentEnviro();
    setDevelopmentEnviro(true);
    EXPECT_TRUE(isDevelopmentEnviro());
    setDevelopmentEnviro(false);
    EXPECT_FALSE(isDevelopmentEnviro());
    setDevelopmentEnviro(former);
}

} // namespace
} // namespace Nolvex
