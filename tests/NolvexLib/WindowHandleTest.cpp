// SPDX-License-Identifier: MIT
#include "NolvexLib/WindowHandle.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

TEST(WindowHandleTest, constructor_withoutWindow_isNone)
{
    EXPECT_FALSE(WindowHandle());
    EXPECT_EQ(WindowHandle().native, nullptr);
}

TEST(WindowHandleTest, handles_areEqualWhenTheirWindowsAre)
{
    int first = 0;
    int second = 0;
    EXPECT_TRUE(WindowHandle{&first});
    EXPECT_EQ(WindowHandle{&first}, WindowHandle{&first});
    EXPECT_NE(WindowHandle{&first}, WindowHandle{&second});
}

} // namespace
} // namespace Nolvex
