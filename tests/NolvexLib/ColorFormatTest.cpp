// SPDX-License-Identifier: MIT
#include "NolvexLib/ColorFormat.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

constexpr ColorFormat U8 = ColorFormat::UINT8_RGB;
constexpr ColorFormat U16 = ColorFormat::UINT16_RGB;
constexpr ColorFormat F16 = ColorFormat::FLT16_LINEAR_RGB;
constexpr ColorFormat F32 = ColorFormat::FLT32_LINEAR_RGB;

TEST(ColorFormatTest, getColorFormatName_isTheNameOfTheEnumerator)
{
    EXPECT_EQ(getColorFormatName(ColorFormat::DEFAULT), L"DEFAULT");
    EXPECT_EQ(getColorFormatName(U8), L"UINT8_RGB");
    EXPECT_EQ(getColorFormatName(U16), L"UINT16_RGB");
    EXPECT_EQ(getColorFormatName(F16), L"FLT16_LINEAR_RGB");
    EXPECT_EQ(getColorFormatName(F32), L"FLT32_LINEAR_RGB");
}

TEST(ColorFormatTest, getColorFormatName_ofWhatIsNoFormat_isAProgrammingError)
{
    EXPECT_THROW(getColorFormatName(static_cast<ColorFormat>(3)), StopException);
    EXPECT_THROW(getColorFormatName(static_cast<ColorFormat>(16)), StopException);
}

TEST(ColorFormatTest, getColorFormatFromName_readsWhatWasNamed)
{
    for (const ColorFormat format : {ColorFormat::DEFAULT, U8, U16, F16, F32})
        EXPECT_EQ(getColorFormatFromName(getColorFormatName(format)), format);
}

TEST(ColorFormatTest, getColorFormatFromName_ofOtherText_isNone)
{
    EXPECT_FALSE(getColorFormatFromName(L""));
    EXPECT_FALSE(getColorFormatFromName(L"uint8_rgb"));
    EXPECT_FALSE(getColorFormatFromName(L"UINT8_RGB "));
}

} // namespace
} // namespace Nolvex
