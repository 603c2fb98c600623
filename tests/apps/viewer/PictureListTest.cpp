// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureList.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::PictureList;

TEST(PictureListTest, empty_hasNoCurrentFileAndStaysThere)
{
    PictureList list;
    EXPECT_FALSE(list.current().has_value());
    list.move(1);
    list.move(-3);
    EXPECT_FALSE(list.current().has_value());
    EXPECT_EQ(list.count(), 0u);
}

TEST(PictureListTest, move_goesRoundInBothDirections)
{
    PictureList list({Io::Path(L"a"), Io::Path(L"b"), Io::Path(L"c")});
    EXPECT_EQ(list.current(), Io::Path(L"a"));
    list.move(1);
    EXPECT_EQ(list.current(), Io::Path(L"b"));
    list.move(2);
    EXPECT_EQ(list.current(), Io::Path(L"a"));
    list.move(-1);
    EXPECT_EQ(list.current(), Io::Path(L"c"));
    list.move(-7);
    EXPECT_EQ(list.position(), 1u);
}

TEST(PictureListTest, replaceCurrent_keepsTheOthersAndThePlace)
{
    PictureList list({Io::Path(L"a"), Io::Path(L"b"), Io::Path(L"c")});
    list.move(1);
    list.replaceCurrent(Io::Path(L"x"));
    EXPECT_EQ(list.current(), Io::Path(L"x"));
    list.move(1);
    EXPECT_EQ(list.current(), Io::Path(L"c"));

    PictureList empty;
    empty.replaceCurrent(Io::Path(L"x"));
    EXPECT_EQ(empty.current(), Io::Path(L"x"));
    EXPECT_EQ(empty.count(), 1u);
}
