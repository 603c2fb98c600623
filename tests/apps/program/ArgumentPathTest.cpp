// SPDX-License-Identifier: MIT
#include "apps/program/ArgumentPath.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;
using Program::argumentPath;

TEST(ArgumentPathTest, text_isThePathOfTheArgumentThatItIsFrom)
{
    // On Linux, this byte is no UTF-8.
    using Char = std::filesystem::path::value_type;
    const Io::Path broken(
        std::filesystem::path(std::filesystem::path::string_type{Char('a'), static_cast<Char>(0xff)}));
    const Array<Io::Path> arguments{Io::Path(L"b.png"), broken};
    EXPECT_EQ(argumentPath(broken.nativeStr(), arguments), broken);
    EXPECT_EQ(argumentPath(L"b.png", arguments), Io::Path(L"b.png"));
}

TEST(ArgumentPathTest, textOfNoArgument_isAPathItself)
{
    EXPECT_EQ(argumentPath(L"c.png", {Io::Path(L"--name=c.png")}), Io::Path(L"c.png"));
}
