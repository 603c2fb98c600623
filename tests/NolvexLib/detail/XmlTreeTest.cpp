// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlTree.h"

#include <gtest/gtest.h>

namespace Nolvex::Detail {

namespace {

/// A tree of the children a (with b, which has c), d (with a text) and e.
XmlTree sample()
{
    XmlTree tree;
    tree.append("a", {}, 1);
    tree.append("b", {}, 2);
    tree.append("c", "x<y", 3);
    tree.append("d", "text & more", 1);
    tree.append("e", {}, 1);
    return tree;
}

} // namespace

TEST(XmlTreeTest, toUtf8_closesElementsWhereTheirLevelEnds)
{
    EXPECT_EQ(XmlTree().toUtf8(), "<root></root>");
    EXPECT_EQ(sample().toUtf8(), "<root><a><b><c>x&lt;y</c></b></a><d>text &amp; more</d><e></e></root>");
}

TEST(XmlTreeTest, children_areFollowedByTheNextChildOfTheRoot)
{
    const XmlTree tree = sample();
    const XmlTree::Range a = tree.firstChild();
    EXPECT_EQ(a, (XmlTree::Range{0, 3}));
    const XmlTree::Range d = tree.nextChild(a);
    EXPECT_EQ(d, (XmlTree::Range{3, 4}));
    const XmlTree::Range end = tree.nextChild(tree.nextChild(d));
    EXPECT_EQ(end.first, end.end);
    EXPECT_EQ(XmlTree().firstChild(), (XmlTree::Range{0, 0}));
    EXPECT_EQ(XmlTree::below(a), (XmlTree::Range{1, 3}));
}

TEST(XmlTreeTest, levelCount_isOfTheDeepestElement)
{
    EXPECT_EQ(XmlTree().levelCount(), 0);
    EXPECT_EQ(sample().levelCount(), 3);
}

TEST(XmlTreeTest, append_ofItself_doublesTheTree)
{
    XmlTree tree = sample();
    tree.append(tree, tree.all(), 1);
    XmlTree twice = sample();
    twice.append(sample(), sample().all(), 1);
    EXPECT_EQ(tree, twice);
}

TEST(XmlTreeTest, append_ofARange_movesItToTheLevel)
{
    XmlTree tree;
    tree.append("z", {}, 1);
    tree.append(sample(), {1, 3}, 2);
    EXPECT_EQ(tree.toUtf8(), "<root><z><b><c>x&lt;y</c></b></z></root>");
}

TEST(XmlTreeTest, trees_areEqualIfLevelsNamesAndTextsAre)
{
    EXPECT_EQ(sample(), sample());
    XmlTree longer = sample();
    longer.append("f", {}, 1);
    EXPECT_FALSE(longer == sample());
    const auto single = [](const char* name, const char* text, int level) {
        XmlTree tree;
        tree.append("p", {}, 1);
        tree.append(name, text, level);
        return tree;
    };
    EXPECT_EQ(single("q", "r", 1), single("q", "r", 1));
    EXPECT_FALSE(single("q", "r", 1) == single("q", "r", 2));
    EXPECT_FALSE(single("q", "r", 1) == single("q", "s", 1));
    EXPECT_FALSE(single("q", "r", 1) == single("p", "r", 1));
}

} // namespace Nolvex::Detail
