// SPDX-License-Identifier: MIT
#include "apps/program/platform/ProcessArguments.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;

TEST(ProcessArgumentsTest, programFile_isTheFileOfThisProgram)
{
    const Io::Path file = Program::programFile();
    EXPECT_TRUE(file.native().is_absolute());
    EXPECT_TRUE(std::filesystem::is_regular_file(file.native())) << file.nativeStr().toUtf8();
    EXPECT_EQ(file.fileName().find(L"NolvexViewerTests"), 0u) << file.nativeStr().toUtf8();
}
