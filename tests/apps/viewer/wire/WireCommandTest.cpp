// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/WireCommand.h"

#include "apps/viewer/wire/WireLimits.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Nolvex::Tests {

namespace {

using namespace Viewer;

using Children = Array<std::pair<const wchar_t*, String>>;

XmlString header(const Children& children)
{
    XmlString tree;
    for (const auto& [key, text] : children)
        tree.addChild(key, text);
    return tree;
}

// A create command in which one child is replaced, or left out if the text is null.
Expected<WireCommand, String> createWith(const wchar_t* key, const wchar_t* text)
{
    Children children = {{L"Version", L"1"}, {L"Command", L"create"}, {L"Name", L"a"},
                         {L"Width", L"4"},   {L"Height", L"3"},       {L"Format", L"UINT16_GREY"}};
    std::erase_if(children, [&](const auto& child) { return String(child.first) == key; });
    if (text != nullptr)
        children.emplace_back(key, text);
    return parseWireCommand(header(children));
}

Expected<WireCommand, String> updateAt(const wchar_t* x, const wchar_t* y, const wchar_t* width,
                                       const wchar_t* height)
{
    return parseWireCommand(header({{L"Version", L"1"},
                                    {L"Command", L"update"},
                                    {L"Name", L"a"},
                                    {L"X", x},
                                    {L"Y", y},
                                    {L"Width", width},
                                    {L"Height", height}}));
}

String errorOf(const Expected<WireCommand, String>& command)
{
    return command ? String(L"accepted") : command.error();
}

TEST(WireCommandTest, everyAction_survivesTheHeader)
{
    for (const WireAction action : {WireAction::OPEN, WireAction::CREATE, WireAction::UPDATE,
                                    WireAction::PROGRESS, WireAction::CLOSE}) {
        WireCommand command;
        command.action = action;
        command.name = L"Z\u00fcrich <1> & more";
        command.area = {{0, 0}, {30'000, 7}};
        if (action == WireAction::UPDATE)
            command.area = {{5, 6}, {15, 9}};
        command.format = PixelFormat::FLOAT16_RGBA;
        command.gamma = 1.8f;
        command.progress = 0.25f;
        const auto parsed = parseWireCommand(composeWireCommand(command));
        ASSERT_TRUE(parsed) << errorOf(parsed).toUtf8();
        EXPECT_EQ(parsed->action, action);
        EXPECT_EQ(parsed->name, command.name);
        EXPECT_EQ(parsed->progress, command.progress);
        if (action == WireAction::OPEN || action == WireAction::CREATE) {
            EXPECT_EQ(parsed->format, command.format);
            EXPECT_EQ(parsed->gamma, command.gamma);
        }
        if (action != WireAction::PROGRESS && action != WireAction::CLOSE) {
            EXPECT_EQ(parsed->area, command.area);
        }
    }
}

TEST(WireCommandTest, everyFormat_hasTheNameOfItsEnumerator)
{
    for (int i = 0; i < PIXEL_FORMAT_COUNT; ++i) {
        WireCommand command;
        command.name = L"a";
        command.area = {{0, 0}, {1, 1}};
        command.format = static_cast<PixelFormat>(i);
        const auto parsed = parseWireCommand(composeWireCommand(command));
        ASSERT_TRUE(parsed);
        EXPECT_EQ(parsed->format, command.format);
    }
    EXPECT_EQ(createWith(L"Format", L"UINT8_RGB")->format, PixelFormat::UINT8_RGB);
    EXPECT_EQ(createWith(L"Format", L"FLOAT16_GREY")->format, PixelFormat::FLOAT16_GREY);
    EXPECT_EQ(createWith(L"Format", L"FLOAT32_RGBA")->format, PixelFormat::FLOAT32_RGBA);
}

TEST(WireCommandTest, alpha_isStraightUnlessTheHeaderSaysOtherwise)
{
    EXPECT_EQ(createWith(L"Gamma", nullptr)->alpha, AlphaKind::STRAIGHT);
    EXPECT_EQ(createWith(L"Alpha", L"straight")->alpha, AlphaKind::STRAIGHT);
    EXPECT_EQ(createWith(L"Alpha", L"associated")->alpha, AlphaKind::ASSOCIATED);
    for (const wchar_t* kind : {L"", L"Associated", L"premultiplied", L"1"})
        EXPECT_EQ(errorOf(createWith(L"Alpha", kind)), L"Alpha must be straight or associated.");
    WireCommand command;
    command.name = L"a";
    command.area = {{0, 0}, {1, 1}};
    EXPECT_FALSE(composeWireCommand(command).getChild(L"Alpha").has_value());
    command.alpha = AlphaKind::ASSOCIATED;
    EXPECT_EQ(composeWireCommand(command).getChild(L"Alpha"), String(L"associated"));
}

TEST(WireCommandTest, header_isThatOfTheDescription)
{
    WireCommand command;
    command.action = WireAction::UPDATE;
    command.name = L"a<b";
    command.area = {{1, 2}, {4, 6}};
    command.progress = 0.5f;
    EXPECT_EQ(composeWireCommand(command).toUtf8(),
              "<root><Version>1</Version><Command>update</Command><Name>a&lt;b</Name><X>1</X><Y>2</Y>"
              "<Width>3</Width><Height>4</Height><Progress>0.5</Progress></root>");
}

TEST(WireCommandTest, missingChildren_areNamed)
{
    for (const wchar_t* key : {L"Version", L"Command", L"Name", L"Width", L"Height", L"Format"})
        EXPECT_EQ(errorOf(createWith(key, nullptr)), String(key) + L" is missing.");
    EXPECT_EQ(
        errorOf(parseWireCommand(header({{L"Version", L"1"}, {L"Command", L"progress"}, {L"Name", L"a"}}))),
        L"Progress is missing.");
}

TEST(WireCommandTest, otherVersions_areRefused)
{
    for (const wchar_t* version : {L"0", L"2", L"-1"})
        EXPECT_EQ(errorOf(createWith(L"Version", version)), L"This viewer speaks version 1 of the protocol.");
    EXPECT_EQ(errorOf(createWith(L"Version", L"1.0")), L"Version is no whole number of 32 bits.");
}

TEST(WireCommandTest, unknownCommandsAndFormats_areNamed)
{
    EXPECT_EQ(errorOf(createWith(L"Command", L"Create")), L"The command \"Create\" is unknown.");
    EXPECT_EQ(errorOf(createWith(L"Format", L"UINT8_BGR")), L"The format \"UINT8_BGR\" is unknown.");
}

TEST(WireCommandTest, sides_haveLimits)
{
    EXPECT_EQ(createWith(L"Width", L"65536")->area.width(), 65536);
    for (const wchar_t* side : {L"0", L"-1", L"65537", L"2147483647"})
        EXPECT_EQ(errorOf(createWith(L"Width", side)), L"Width must be from 1 to 65536.");
    for (const wchar_t* side : {L"", L"4 ", L"0x4", L"4.0", L"2147483648", L"99999999999999999999"})
        EXPECT_EQ(errorOf(createWith(L"Height", side)), L"Height is no whole number of 32 bits.");
}

TEST(WireCommandTest, corners_cannotOverflow)
{
    EXPECT_EQ(updateAt(L"65535", L"7", L"1", L"65536")->area, (Bucket{{65535, 7}, {65536, 65543}}));
    EXPECT_FALSE(updateAt(L"-1", L"0", L"1", L"1"));
    EXPECT_FALSE(updateAt(L"0", L"-2147483648", L"1", L"1"));
    EXPECT_FALSE(updateAt(L"2147483647", L"0", L"1", L"1"));
    EXPECT_FALSE(updateAt(L"0", L"2147483647", L"65536", L"65536"));
    EXPECT_FALSE(updateAt(L"0", L"0", L"0", L"1"));
}

TEST(WireCommandTest, names_areShortTextsWithoutControlCharacters)
{
    const String longest(std::wstring(WireLimits::MAX_NAME_BYTES, L'n'));
    EXPECT_EQ(createWith(L"Name", longest.c_str())->name, longest);
    EXPECT_EQ(createWith(L"Name", L"../../etc/passwd")->name, L"../../etc/passwd");
    for (const String& name : {String(), longest + L"n", String(L"a\nb"), String(L"\x7f"),
                               String(std::wstring(WireLimits::MAX_NAME_BYTES / 2 + 1, L'\u00e4'))})
        EXPECT_EQ(errorOf(createWith(L"Name", name.c_str())),
                  L"Name must have 1 to 1024 bytes and no control characters.");
}

TEST(WireCommandTest, gamma_isThatOfTheNumbersUnlessTold)
{
    EXPECT_EQ(createWith(L"Format", L"UINT8_RGB")->gamma, 1.0f);
    EXPECT_EQ(createWith(L"Format", L"FLOAT16_RGB")->gamma, 2.2f);
    EXPECT_EQ(createWith(L"Gamma", L"1.8")->gamma, 1.8f);
    EXPECT_EQ(createWith(L"Gamma", L"10")->gamma, 10.0f);
    for (const wchar_t* gamma : {L"0", L"-1", L"10.1", L"nan", L"inf", L"1e0", L".5", L"1.", L"1.2.3", L"",
                                 L"0.00000000000000000000000000000000000000000000000000000000000001"})
        EXPECT_EQ(errorOf(createWith(L"Gamma", gamma)), L"Gamma must be a number above 0 and up to 10.")
            << String(gamma).toUtf8();
}

TEST(WireCommandTest, progress_isAShare)
{
    EXPECT_EQ(createWith(L"Progress", L"0")->progress, 0.0f);
    EXPECT_EQ(createWith(L"Progress", L"1.000")->progress, 1.0f);
    for (const wchar_t* share : {L"1.01", L"-0.1", L"nan", L"50%"})
        EXPECT_EQ(errorOf(createWith(L"Progress", share)), L"Progress must be a number from 0 to 1.");
}

TEST(WireCommandTest, unknownChildren_areIgnored)
{
    EXPECT_TRUE(createWith(L"Colour", L"red"));
}

TEST(WireCommandTest, answers_tellTheFailure)
{
    EXPECT_EQ(composeWireAnswer({}).toUtf8(), "<root><Version>1</Version><Result>ok</Result></root>");
    EXPECT_EQ(composeWireAnswer(String(L"No.")).toUtf8(),
              "<root><Version>1</Version><Result>error</Result><Text>No.</Text></root>");
    EXPECT_FALSE(parseWireAnswer(composeWireAnswer({})));
    EXPECT_EQ(parseWireAnswer(composeWireAnswer(String(L"No."))), L"No.");
    EXPECT_EQ(parseWireAnswer(XmlString()), L"The answer is not that of a viewer.");
    EXPECT_EQ(parseWireAnswer(header({{L"Result", L"error"}})), L"The viewer refused, and did not say why.");
}

} // namespace

} // namespace Nolvex::Tests
