// SPDX-License-Identifier: MIT
#include "apps/program/platform/ErrorReport.h"

#include "support/ErrorStream.h"

#include <gtest/gtest.h>

using namespace Nolvex;

namespace {

/// Returns the text on the error stream.
std::string reported(const char* program, const std::string& message)
{
    testing::internal::CaptureStderr();
    Program::reportError(program, message);
    std::string written = testing::internal::GetCapturedStderr();
    std::erase(written, '\r');
    return written;
}

} // namespace

TEST(ErrorReportTest, message_isALineThatNamesTheProgram)
{
    EXPECT_EQ(reported("nolvex-test", "The file \"\u00FC.png\" is gone."),
              "nolvex-test: The file \"\u00FC.png\" is gone.\n");
}

TEST(ErrorReportTest, message_isNoFormat)
{
    EXPECT_EQ(reported("nolvex-%s", "100 % of %n and %s"), "nolvex-%s: 100 % of %n and %s\n");
}

TEST(ErrorReportTest, message_ofManyCharactersAndLines_isComplete)
{
    const std::string message = std::string(100'000, 'x') + "\nsecond line";
    EXPECT_EQ(reported("nolvex-test", message), "nolvex-test: " + message + '\n');
    EXPECT_EQ(reported("nolvex-test", ""), "nolvex-test: \n");
}

TEST(ErrorReportTest, message_withoutAnErrorStream_isShownInABoxIfTheSystemHasOne)
{
    const Optional<Tests::MessageBoxTexts> box = Tests::withoutErrorStream(
        "nolvex-test", [] { Program::reportError("nolvex-test", "The file \"\u00FC.png\" is 100 % gone."); });
    if (!box)
        GTEST_SKIP() << "programs without an error stream have no other place for errors on this system";
    EXPECT_EQ(box->title, L"nolvex-test");
    EXPECT_EQ(box->message, L"The file \"\u00FC.png\" is 100 % gone.");
}
