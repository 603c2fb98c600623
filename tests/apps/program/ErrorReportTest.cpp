// SPDX-License-Identifier: MIT
#include "apps/program/platform/ErrorReport.h"

#include <gtest/gtest.h>

using namespace Nolvex;

TEST(ErrorReportTest, message_isALineThatNamesTheProgram)
{
    testing::internal::CaptureStderr();
    Program::reportError("nolvex-test", "The file \"\u00FC.png\" is 100 % gone.");
    std::string written = testing::internal::GetCapturedStderr();
    std::erase(written, '\r');
    EXPECT_EQ(written, "nolvex-test: The file \"\u00FC.png\" is 100 % gone.\n");
}
