// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandLine.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::parseCommandLine;

namespace {

Array<Io::Path> arguments(std::initializer_list<const wchar_t*> texts)
{
    Array<Io::Path> paths;
    for (const wchar_t* text : texts)
        paths.emplace_back(StringView(text));
    return paths;
}

} // namespace

TEST(ViewerCommandLineTest, nothing_asksForTheSample)
{
    const auto line = parseCommandLine({});
    ASSERT_TRUE(line.hasValue());
    EXPECT_TRUE(line->picture.isEmpty());
    EXPECT_TRUE(line->screenshot.isEmpty());
    EXPECT_FALSE(line->help || line->version);
}

TEST(ViewerCommandLineTest, pictureAndScreenshot_areTakenInAnyOrder)
{
    for (const auto& given : {arguments({L"--screenshot", L"out.png", L"in.png"}),
                              arguments({L"in.png", L"--screenshot", L"out.png"})}) {
        const auto line = parseCommandLine(given);
        ASSERT_TRUE(line.hasValue());
        EXPECT_EQ(line->picture, Io::Path(L"in.png"));
        EXPECT_EQ(line->screenshot, Io::Path(L"out.png"));
    }
}

TEST(ViewerCommandLineTest, doubleDash_endsTheOptions)
{
    const auto line = parseCommandLine(arguments({L"--", L"--help"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->picture, Io::Path(L"--help"));
    EXPECT_FALSE(line->help);
}

TEST(ViewerCommandLineTest, mistakes_areNamed)
{
    for (const auto& given :
         {arguments({L"--screenshot"}), arguments({L"--no-such-option"}), arguments({L"a.png", L"b.png"})}) {
        const auto line = parseCommandLine(given);
        ASSERT_FALSE(line.hasValue());
        EXPECT_FALSE(line.error().isEmpty());
    }
}
