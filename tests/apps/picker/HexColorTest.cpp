// SPDX-License-Identifier: MIT
#include "apps/picker/HexColor.h"

#include "NolvexLibWx/ColourConversions.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Nolvex;
using Picker::hexColor;
using Picker::parseHexColor;

namespace {

Rgb fromBytes(int r, int g, int b, int a = 255)
{
    const auto color = [](int x, int y, int z) {
        return Wx::toRgb(wxColour(static_cast<unsigned char>(x), static_cast<unsigned char>(y),
                                  static_cast<unsigned char>(z)));
    };
    const Rgb opaque = color(r, g, b);
    return {opaque.r, opaque.g, opaque.b, color(a, a, a).r};
}

} // namespace

TEST(HexColorTest, threeSixAndEightDigits_areColours)
{
    EXPECT_EQ(parseHexColor(L"#804020"), fromBytes(0x80, 0x40, 0x20));
    EXPECT_EQ(parseHexColor(L"#abc"), fromBytes(0xAA, 0xBB, 0xCC));
    EXPECT_EQ(parseHexColor(L"#01020380"), fromBytes(1, 2, 3, 128));
    EXPECT_EQ(parseHexColor(L" AbCdEf\t"), fromBytes(0xAB, 0xCD, 0xEF));
}

TEST(HexColorTest, everythingElse_isNoColour)
{
    for (const wchar_t* text :
         {L"", L"#", L"##123", L"#1", L"#12", L"#1234", L"#12345", L"#1234567", L"#123456789", L"#12345g",
          L"#12 345", L"0x123456", L"-12345", L"red", L"#\u0661\u0662\u0663", L"# 123"})
        EXPECT_FALSE(parseHexColor(text).has_value()) << String(text).toUtf8();
    EXPECT_FALSE(parseHexColor(StringView(std::wstring_view(L"#123\0", 5))).has_value());
}

TEST(HexColorTest, opaqueColours_areWrittenWithSixDigits)
{
    EXPECT_EQ(hexColor(fromBytes(0x80, 0x40, 0x20)), L"#804020");
    EXPECT_EQ(hexColor(fromBytes(1, 2, 3, 128)), L"#01020380");
    EXPECT_EQ(hexColor({0, 0, 0, 5.0f}), L"#000000");
}

TEST(HexColorTest, everyByte_comesBack)
{
    for (int byte = 0; byte < 256; ++byte) {
        const Rgb color = fromBytes(byte, 255 - byte, byte, byte);
        EXPECT_EQ(parseHexColor(hexColor(color)), color) << byte;
    }
}

TEST(HexColorTest, numbersThatAreNoBytes_areClampedAndRounded)
{
    constexpr float INFINITE_LIGHT = std::numeric_limits<float>::infinity();
    constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(hexColor({-1, 2, 0.5f, 1}), L"#00ff80");
    EXPECT_EQ(hexColor({NOT_A_NUMBER, INFINITE_LIGHT, -INFINITE_LIGHT, 1}), L"#00ff00");
    EXPECT_EQ(hexColor({0, 0, 0, NOT_A_NUMBER}), L"#00000000");
}

TEST(HexColorTest, numberBetweenTwoBytes_becomesTheByteThatControlsShow)
{
    for (const float number : {126.5f / 255.0f, 127.5f / 255.0f, 0.5f / 255.0f, 1.5f / 255.0f}) {
        const RgbBytes shown = Wx::toRgbBytes(Wx::toWxColour(Rgb{number, number, number, 1.0f}));
        const Optional<Rgb> written = parseHexColor(hexColor({number, number, number, number}));
        ASSERT_TRUE(written.has_value());
        EXPECT_EQ(*written, fromBytes(shown.r, shown.g, shown.b, shown.r)) << number;
    }
    EXPECT_EQ(hexColor({126.5f / 255.0f, 1.5f / 255.0f, 0, 1}), L"#7e0200");
}
