// SPDX-License-Identifier: MIT
#include "apps/viewer/CommandLine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

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
    EXPECT_TRUE(line->pictures.empty());
    EXPECT_TRUE(line->screenshot.isEmpty());
    EXPECT_FALSE(line->help || line->version);
}

TEST(ViewerCommandLineTest, pictureAndScreenshot_areTakenInAnyOrder)
{
    for (const auto& given : {arguments({L"--screenshot", L"out.png", L"in.png"}),
                              arguments({L"in.png", L"--screenshot", L"out.png"})}) {
        const auto line = parseCommandLine(given);
        ASSERT_TRUE(line.hasValue());
        EXPECT_EQ(line->pictures, (Array<Io::Path>{Io::Path(L"in.png")}));
        EXPECT_EQ(line->screenshot, Io::Path(L"out.png"));
    }
}

TEST(ViewerCommandLineTest, capture_standsAlone)
{
    const auto line = parseCommandLine(arguments({L"--capture"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_TRUE(line->capture);
    EXPECT_FALSE(parseCommandLine(arguments({L"in.png"}))->capture);
    for (const auto& given :
         {arguments({L"--capture", L"in.png"}), arguments({L"--capture", L"--screenshot", L"out.png"})}) {
        const auto refused = parseCommandLine(given);
        ASSERT_FALSE(refused.hasValue());
        EXPECT_NE(refused.error().wstr().find(L"--capture"), std::wstring::npos);
    }
}

TEST(ViewerCommandLineTest, doubleDash_endsTheOptions)
{
    const auto line = parseCommandLine(arguments({L"--", L"--help"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->pictures, (Array<Io::Path>{Io::Path(L"--help")}));
    EXPECT_FALSE(line->help);
}

TEST(ViewerCommandLineTest, severalPictures_areKeptInTheirOrder)
{
    const auto line = parseCommandLine(arguments({L"b.exr", L"a.exr", L"folder"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->pictures, arguments({L"b.exr", L"a.exr", L"folder"}));
}

TEST(ViewerCommandLineTest, listen_takesAnAddress)
{
    const auto line = parseCommandLine(arguments({L"--listen", L"192.168.0.1:14158"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->listen, L"192.168.0.1:14158");
    EXPECT_TRUE(line->pictures.empty());
}

TEST(ViewerCommandLineTest, mistakes_areNamed)
{
    const std::pair<Array<Io::Path>, const wchar_t*> mistakes[] = {
        {arguments({L"--screenshot"}), L"screenshot"},
        {arguments({L"--no-such-option"}), L"no-such-option"},
        {arguments({L"--listen"}), L"listen"},
    };
    for (const auto& [given, named] : mistakes) {
        const auto line = parseCommandLine(given);
        ASSERT_FALSE(line.hasValue());
        EXPECT_NE(line.error().find(named), String::NPOS) << line.error().toUtf8();
        EXPECT_NE(line.error().find(L"Try --help."), String::NPOS) << line.error().toUtf8();
    }
}

TEST(ViewerCommandLineTest, helpAndVersion_areAskedFor)
{
    for (const wchar_t* help : {L"--help", L"-h"}) {
        const auto line = parseCommandLine(arguments({help}));
        ASSERT_TRUE(line.hasValue());
        EXPECT_TRUE(line->help);
    }
    const auto line = parseCommandLine(arguments({L"--version"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_TRUE(line->version);
}

TEST(ViewerCommandLineTest, usage_namesTheProgramAndEachOption)
{
    const std::string text = Viewer::usage();
    for (const char* word : {"nolvex-viewer", "--screenshot", "--version", "--help", "PICTURE", "PFM"})
        EXPECT_NE(text.find(word), std::string::npos) << word << " in " << text;
}

TEST(ViewerCommandLineTest, screenshotAfterAnEqualsSign_isTaken)
{
    const auto line = parseCommandLine(arguments({L"--screenshot=out.png"}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->screenshot, Io::Path(L"out.png"));
}

TEST(ViewerCommandLineTest, namesWithSpacesQuotesAndUmlauts_areKept)
{
    const wchar_t* const name = L"a \"b\" \u00FC\u4E2D.png";
    const auto line = parseCommandLine(arguments({name}));
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->pictures, (Array<Io::Path>{Io::Path(StringView(name))}));
}

TEST(ViewerCommandLineTest, nameThatIsNoText_opensTheFileItNames)
{
    const Io::Path name(std::filesystem::path("broken-\xFF\xFE.png"));
    const auto line = parseCommandLine({name});
    ASSERT_TRUE(line.hasValue());
    EXPECT_EQ(line->pictures, (Array<Io::Path>{name}));
}
