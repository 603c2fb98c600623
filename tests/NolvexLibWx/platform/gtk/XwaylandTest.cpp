// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/gtk/Xwayland.h"

#include <gtest/gtest.h>

using Nolvex::Platform::isXwaylandOutput;

TEST(XwaylandTest, outputsOfXwayland_areRecognised)
{
    EXPECT_TRUE(isXwaylandOutput("XWAYLAND0"));
    EXPECT_TRUE(isXwaylandOutput("XWAYLAND12"));
}

TEST(XwaylandTest, outputsOfOtherServers_areNot)
{
    for (const char* name : {"", "XWAYLAND", "XWAYLANDS", "XWAYLAND1b", "xwayland0", "HDMI-1", "screen",
                             "eDP-1", " XWAYLAND0", "WL-1"})
        EXPECT_FALSE(isXwaylandOutput(name)) << name;
}
