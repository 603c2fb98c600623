// SPDX-License-Identifier: MIT
#include "NolvexLib/Version.h"

#include <gtest/gtest.h>

#include <string>

using namespace Nolvex;

TEST(VersionTest, loadedLibrary_hasTheVersionOfTheHeaders)
{
    const std::string numbers = std::to_string(NOLVEX_VERSION_MAJOR) + "." +
                                std::to_string(NOLVEX_VERSION_MINOR) + "." +
                                std::to_string(NOLVEX_VERSION_PATCH);
    EXPECT_EQ(numbers, NOLVEX_VERSION);
    EXPECT_EQ(numbers, loadedVersion());
}
