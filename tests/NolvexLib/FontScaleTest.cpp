// SPDX-License-Identifier: MIT
#include "NolvexLib/FontScale.h"

#include <gtest/gtest.h>

#include <limits>

namespace Nolvex {
namespace {

class FontScaleTest : public testing::Test
{
public:
    ~FontScaleTest() override { setFontScale(1.0f); }

protected:
};

TEST_F(FontScaleTest, getFontScale_beforeOneIsSet_isOne)
{
    EXPECT_EQ(getFontScale(), 1.0f);
}

TEST_F(FontScaleTest, setFontScale_takesFinitePositiveValues)
{
    for (const float scale : {1.25f, 0.5f, std::numeric_limits<float>::min()}) {
        EXPECT_TRUE(setFontScale(scale));
        EXPECT_EQ(getFontScale(), scale);
    }
}

TEST_F(FontScaleTest, setFontScale_refusesEverythingElseAndKeepsTheFormer)
{
    ASSERT_TRUE(setFontScale(1.5f));
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    for (const float scale : {0.0f, -1.0f, INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_FALSE(setFontScale(scale)) << scale;
        EXPECT_EQ(getFontScale(), 1.5f);
    }
}

} // namespace
} // namespace Nolvex
