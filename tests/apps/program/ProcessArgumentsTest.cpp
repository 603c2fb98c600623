// SPDX-License-Identifier: MIT
#include "apps/program/platform/ProcessArguments.h"

#include "support/TemporaryFolder.h"

#include <wx/utils.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace Nolvex;

namespace {

/// Starts NolvexArgumentPrinter, which lies beside this program, with arguments.
struct ProcessArgumentsTest : testing::Test
{
    const Io::Path printer =
        Program::programFile().parentDirectory() / (L"NolvexArgumentPrinter" + extension());
    const Tests::TemporaryFolder folder; // of this run alone, since others may run at the same time
    const Io::Path output = folder.file(L"arguments-\u00FC.txt");

    static std::wstring extension() { return Program::programFile().native().extension().wstring(); }

    /// Returns the lines that the program wrote: its path and its arguments.
    std::vector<std::string> linesFor(const std::vector<std::wstring>& arguments) const
    {
        const String program = printer.nativeStr();
        const String file = output.nativeStr();
        std::vector<const wchar_t*> command = {program.c_str(), file.c_str()};
        for (const std::wstring& argument : arguments)
            command.push_back(argument.c_str());
        command.push_back(nullptr);
        EXPECT_EQ(wxExecute(command.data(), wxEXEC_SYNC), 0);
        std::ifstream written(output.native(), std::ios::binary);
        std::vector<std::string> lines;
        for (std::string line; std::getline(written, line);)
            lines.push_back(line);
        return lines;
    }
};

} // namespace

TEST_F(ProcessArgumentsTest, programFile_isTheFileOfThisProgram)
{
    const Io::Path file = Program::programFile();
    EXPECT_TRUE(file.native().is_absolute());
    EXPECT_TRUE(std::filesystem::is_regular_file(file.native())) << file.nativeStr().toUtf8();
    EXPECT_EQ(file.fileName().find(L"NolvexViewerTests"), 0u) << file.nativeStr().toUtf8();
}

TEST_F(ProcessArgumentsTest, programFile_ofAnotherProgram_isItsOwn)
{
    const std::vector<std::string> lines = linesFor({});
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::path(lines.front()), printer.native()))
        << lines.front();
}

TEST_F(ProcessArgumentsTest, arguments_comeWithEveryCharacter)
{
    const std::vector<std::string> lines =
        linesFor({L"\u00FCber", L"\u20AC 5", L"\u65E5\u672C", L"\u05E9\u05DC\u05D5\u05DD", L"\U0001F600"});
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[1], "\u00FCber");
    EXPECT_EQ(lines[2], "\u20AC 5");
    EXPECT_EQ(lines[3], "\u65E5\u672C");
    EXPECT_EQ(lines[4], "\u05E9\u05DC\u05D5\u05DD");
    EXPECT_EQ(lines[5], "\U0001F600");
}

// The Windows runtime library would replace a pattern by the names of the files that it fits.
TEST_F(ProcessArgumentsTest, arguments_staySeparateAndAsTheyWereTyped)
{
    const std::vector<std::wstring> arguments = {L"two words",   std::wstring(),  L"a \"quoted\" word",
                                                 L"*.exe",       L"--name=value", L"100%",
                                                 L"C:\\folder\\"};
    const std::vector<std::string> lines = linesFor(arguments);
    ASSERT_EQ(lines.size(), arguments.size() + 1);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        EXPECT_EQ(lines[i + 1], String(arguments[i]).toUtf8());
}
