// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

using namespace std::string_literals;

namespace Nolvex {

namespace {

XmlString leaf(StringView key, const String& value)
{
    XmlString tree;
    tree.addChild(key, value);
    return tree;
}

// Returns nested elements of as many levels as requested, the root being the first level.
std::string nested(std::size_t levels)
{
    std::string xml = "<root>";
    for (std::size_t i = 1; i < levels; ++i)
        xml += "<a>";
    for (std::size_t i = 1; i < levels; ++i)
        xml += "</a>";
    return xml + "</root>";
}

XmlString parsed(std::string_view xml)
{
    auto result = XmlString::fromUtf8(xml);
    EXPECT_TRUE(result.hasValue()) << (result ? "" : result.error().toUtf8());
    return result ? *std::move(result) : XmlString();
}

void expectComesBack(const XmlString& tree)
{
    const auto back = XmlString::fromString(tree.toString());
    ASSERT_TRUE(back.hasValue()) << back.error().toUtf8();
    EXPECT_TRUE(*back == tree);
    EXPECT_EQ(back->toUtf8(), tree.toUtf8());
}

} // namespace

TEST(XmlStringTest, construction_withoutContent_isEmpty)
{
    const XmlString tree;
    EXPECT_TRUE(tree.isEmpty());
    EXPECT_EQ(tree.childCount(), 0U);
    EXPECT_EQ(tree.countChildren(L"a"), 0U);
    EXPECT_FALSE(tree.getChild(L"a").has_value());
    EXPECT_FALSE(tree.getTree(L"a").has_value());
    EXPECT_EQ(tree.toUtf8(), "<root></root>");
    EXPECT_EQ(tree, XmlString());
}

TEST(XmlStringTest, toUtf8_childrenInOrder_isWithoutWhiteSpaceAndDeclaration)
{
    XmlString tree;
    tree.addChild(L"b", L"2");
    tree.addChild(L"a", leaf(L"c", L"1"));
    tree.addChild(L"b", L"");
    EXPECT_EQ(tree.toUtf8(), "<root><b>2</b><a><c>1</c></a><b></b></root>");
    EXPECT_EQ(tree.toString(), L"<root><b>2</b><a><c>1</c></a><b></b></root>");
}

TEST(XmlStringTest, toUtf8_markupInText_isEscapedAndQuotesAreNot)
{
    EXPECT_EQ(leaf(L"a", L"<&>\"'&amp;]]>").toUtf8(), "<root><a>&lt;&amp;&gt;\"'&amp;amp;]]&gt;</a></root>");
}

TEST(XmlStringTest, toUtf8_lineEndsAndTabs_areWrittenAsTheyAre)
{
    EXPECT_EQ(leaf(L"a", L"\r\n\t\r").toUtf8(), "<root><a>\r\n\t\r</a></root>");
}

TEST(XmlStringTest, addChild_charactersXmlCannotCarry_becomeReplacementCharacters)
{
    std::wstring text = L"a";
    for (const int unit : {0, 1, 8, 0x0B, 0x0C, 0x0E, 0x1F, 0xFFFE, 0xFFFF, 0xD800})
        text += static_cast<wchar_t>(unit);
    text += L"z\x7F\x85";
    EXPECT_EQ(leaf(L"k", text).getChild(L"k"), String(L"a" + std::wstring(10, L'\xFFFD') + L"z\x7F\x85"));
}

TEST(XmlStringTest, addChild_keyThatIsNoName_isAProgrammingErrorAndChangesNothing)
{
    XmlString tree = leaf(L"a", L"1");
    for (const wchar_t* key : {L"", L"1a", L"-a", L".a", L"a b", L"a:b", L"\xE4", L"a\xE4", L"a>"}) {
        EXPECT_THROW(tree.addChild(key, L"x"), StopException);
        EXPECT_THROW(tree.addChild(key, XmlString()), StopException);
        EXPECT_FALSE(tree.getChild(key).has_value());
    }
    EXPECT_EQ(tree, leaf(L"a", L"1"));
}

TEST(XmlStringTest, addChild_everyKindOfKeyUnit_isAccepted)
{
    expectComesBack(leaf(L"_Az09.-_", L"x"));
    expectComesBack(leaf(L"xml", L"x"));
    expectComesBack(leaf(L"root", L"x"));
}

TEST(XmlStringTest, addChild_treeTooDeep_isAProgrammingErrorAndChangesNothing)
{
    XmlString tree = parsed(nested(63));
    const XmlString deepest = parsed(nested(64));
    XmlString target;
    target.addChild(L"a", tree);
    EXPECT_EQ(target, deepest);
    expectComesBack(target);
    EXPECT_THROW(tree.addChild(L"a", deepest), StopException);
    EXPECT_EQ(tree, parsed(nested(63)));
}

TEST(XmlStringTest, addChild_treeItself_addsACopyOfWhatItWas)
{
    XmlString tree = leaf(L"a", L"1");
    tree.addChild(L"b", tree);
    EXPECT_EQ(tree.toUtf8(), "<root><a>1</a><b><a>1</a></b></root>");
}

TEST(XmlStringTest, addTree_appendsInOrderAndKeepsDuplicates)
{
    XmlString tree = leaf(L"a", L"1");
    XmlString other = leaf(L"b", L"2");
    other.addChild(L"a", leaf(L"c", L"3"));
    tree.addTree(other);
    EXPECT_EQ(tree.toUtf8(), "<root><a>1</a><b>2</b><a><c>3</c></a></root>");
    EXPECT_EQ(other.childCount(), 2U);
}

TEST(XmlStringTest, addTree_itself_doublesTheChildren)
{
    XmlString tree = leaf(L"a", L"1");
    tree.addChild(L"b", leaf(L"c", L"2"));
    tree.addTree(tree);
    EXPECT_EQ(tree.toUtf8(), "<root><a>1</a><b><c>2</c></b><a>1</a><b><c>2</c></b></root>");
}

TEST(XmlStringTest, addTree_empty_changesNothing)
{
    XmlString tree = leaf(L"a", L"1");
    tree.addTree(XmlString());
    EXPECT_EQ(tree, leaf(L"a", L"1"));
    XmlString empty;
    empty.addTree(empty);
    EXPECT_TRUE(empty.isEmpty());
}

TEST(XmlStringTest, removeChildren_removesAllOfThatNameAndNoOthers)
{
    XmlString tree = parsed("<root><a>1</a><b><a>2</a></b><a><c>3</c></a><a></a><d>4</d></root>");
    EXPECT_EQ(tree.removeChildren(L"a"), 3U);
    EXPECT_EQ(tree.toUtf8(), "<root><b><a>2</a></b><d>4</d></root>");
    EXPECT_EQ(tree.removeChildren(L"a"), 0U);
    EXPECT_EQ(tree.removeChildren(L"b"), 1U);
    EXPECT_EQ(tree.removeChildren(L"d"), 1U);
    EXPECT_TRUE(tree.isEmpty());
    EXPECT_TRUE(tree == XmlString());
}

TEST(XmlStringTest, removeChildren_ofWhatIsNotThere_changesNothing)
{
    XmlString empty;
    EXPECT_EQ(empty.removeChildren(L"a"), 0U);
    XmlString tree = leaf(L"a", L"b");
    EXPECT_EQ(tree.removeChildren(L"not a name"), 0U);
    EXPECT_EQ(tree.removeChildren(L""), 0U);
    EXPECT_TRUE(tree == leaf(L"a", L"b"));
}

TEST(XmlStringTest, getChild_ofSeveral_isTheFirst)
{
    const XmlString tree = parsed("<root><b>0</b><a>1</a><a>2</a></root>");
    EXPECT_EQ(tree.getChild(L"a"), String(L"1"));
    EXPECT_EQ(tree.countChildren(L"a"), 2U);
    EXPECT_EQ(tree.countChildren(L"c"), 0U);
    EXPECT_EQ(tree.childCount(), 3U);
}

TEST(XmlStringTest, getChild_ofATree_givesNone)
{
    const XmlString tree = parsed("<root><a><b>1</b></a><a>2</a></root>");
    EXPECT_FALSE(tree.getChild(L"a").has_value());
    EXPECT_FALSE(tree.getChild(L"b").has_value());
}

TEST(XmlStringTest, getTree_ofATree_isItsCopy)
{
    XmlString tree = parsed("<root><a><b>1</b><c/></a></root>");
    Optional<XmlString> inner = tree.getTree(L"a");
    ASSERT_TRUE(inner.has_value());
    EXPECT_EQ(inner->toUtf8(), "<root><b>1</b><c></c></root>");
    inner->addChild(L"d", L"");
    EXPECT_EQ(tree.getTree(L"a")->childCount(), 2U);
}

TEST(XmlStringTest, getTree_ofAText_givesNone)
{
    EXPECT_FALSE(leaf(L"a", L"1").getTree(L"a").has_value());
    EXPECT_FALSE(leaf(L"a", L" ").getTree(L"a").has_value());
}

TEST(XmlStringTest, emptyChild_hasAnEmptyTextAndAnEmptyTree)
{
    XmlString tree;
    tree.addChild(L"a", XmlString());
    EXPECT_EQ(tree, leaf(L"a", L""));
    EXPECT_EQ(tree.getChild(L"a"), String());
    ASSERT_TRUE(tree.getTree(L"a").has_value());
    EXPECT_TRUE(tree.getTree(L"a")->isEmpty());
}

TEST(XmlStringTest, copy_isIndependent)
{
    XmlString tree = leaf(L"a", L"1");
    XmlString copy = tree;
    copy.addChild(L"b", L"2");
    EXPECT_EQ(tree.childCount(), 1U);
    EXPECT_EQ(copy.childCount(), 2U);
    tree = copy;
    EXPECT_EQ(tree, copy);
    const XmlString& same = tree;
    tree = same;
    EXPECT_EQ(tree, copy);
}

TEST(XmlStringTest, move_leavesAnEmptyTreeThatCanBeUsed)
{
    XmlString tree = leaf(L"a", L"1");
    const XmlString target = std::move(tree);
    EXPECT_EQ(target, leaf(L"a", L"1"));
    // NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what it is then is the promise
    EXPECT_TRUE(tree.isEmpty());
    tree.addChild(L"b", L"2");
    EXPECT_EQ(tree, leaf(L"b", L"2"));
    // NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
}

TEST(XmlStringTest, moveAssignment_replacesTheChildren)
{
    XmlString tree = leaf(L"a", L"1");
    tree = leaf(L"b", L"2");
    EXPECT_EQ(tree, leaf(L"b", L"2"));
}

TEST(XmlStringTest, equality_looksAtNamesTextsOrderAndDepth)
{
    const XmlString tree = parsed("<root><a>1</a><b><c>2</c></b></root>");
    EXPECT_EQ(tree, parsed("<root> <a>1</a>\n<b> <c>2</c> </b> </root>"));
    for (const char* other :
         {"<root></root>", "<root><a>1</a></root>", "<root><b><c>2</c></b><a>1</a></root>",
          "<root><a>1</a><b><c>3</c></b></root>", "<root><a>1</a><b><d>2</d></b></root>",
          "<root><a>1</a><b><c>2</c></b><e/></root>", "<root><a>1</a><b><c>2</c><c>2</c></b></root>",
          "<root><a>1</a><b>2</b></root>"})
        EXPECT_NE(tree, parsed(other)) << other;
}

TEST(XmlStringTest, fromString_whatToStringWrote_isEqual)
{
    XmlString tree;
    expectComesBack(tree);
    tree.addChild(L"markup", L"<a>&amp;</a>\"']]>");
    tree.addChild(L"space", L" ");
    tree.addChild(L"lines", L"\r\n a\rb\nc\t ");
    tree.addChild(L"empty", L"");
    tree.addChild(L"far", String::fromUtf8("\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\xC2\x80\xEF\xBF\xBD"));
    tree.addChild(L"none", std::wstring(L"\0\x1F", 2));
    expectComesBack(tree);
    tree.addChild(L"inner", tree);
    expectComesBack(tree);
}

TEST(XmlStringTest, fromUtf8_whiteSpaceBetweenElements_isIgnored)
{
    const XmlString tree = parsed("\r\n <root >\t<a\n>\n <b>1</b>\r\n<c /></a\t> </root\n>\n\n");
    EXPECT_EQ(tree.toUtf8(), "<root><a><b>1</b><c></c></a></root>");
}

TEST(XmlStringTest, fromUtf8_whiteSpaceInTexts_isKept)
{
    const XmlString tree = parsed("<root><a> \r\n\t</a><b> x </b></root>");
    EXPECT_EQ(tree.getChild(L"a"), String(L" \r\n\t"));
    EXPECT_EQ(tree.getChild(L"b"), String(L" x "));
}

TEST(XmlStringTest, fromUtf8_rootOfWhiteSpaceOnly_isEmpty)
{
    for (const char* xml : {"<root/>", "<root></root>", "<root> \n</root>", "<root />"}) {
        EXPECT_TRUE(parsed(xml).isEmpty());
        EXPECT_EQ(parsed(xml), XmlString());
        EXPECT_EQ(parsed(xml).toUtf8(), "<root></root>");
    }
}

TEST(XmlStringTest, fromUtf8_theFiveEntities_areResolvedOnce)
{
    EXPECT_EQ(parsed("<root><a>&lt;&gt;&amp;&quot;&apos;&amp;lt;&amp;#65;</a></root>").getChild(L"a"),
              String(L"<>&\"'&lt;&#65;"));
    EXPECT_EQ(parsed("<root><a>\"'>]]</a></root>").getChild(L"a"), String(L"\"'>]]"));
}

TEST(XmlStringTest, fromUtf8_oneDeclaration_isAccepted)
{
    for (const char* declaration : {"<?xml version=\"1.0\"?>", "<?xml version='1.0' encoding='utf-8'?>\n",
                                    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>",
                                    "<?xml\tversion = \"1.0\" standalone='no' ?>"})
        EXPECT_EQ(parsed(declaration + "<root><a>1</a></root>"s), leaf(L"a", L"1"));
}

TEST(XmlStringTest, fromUtf8_deepestLevel_isAccepted)
{
    expectComesBack(parsed(nested(64)));
}

TEST(XmlStringTest, fromString_unitThatIsNoCharacter_isRefused)
{
    const std::wstring lone(1, static_cast<wchar_t>(0xD83D));
    const auto result = XmlString::fromString(L"<root><a>\xE4" + lone + L"</a></root>");
    ASSERT_FALSE(result.hasValue());
    EXPECT_EQ(result.error(), L"The text holds a unit that is no character (byte 11).");
    EXPECT_TRUE(XmlString::fromString(L"<root><a>\xFFFD</a></root>").hasValue());
}

TEST(XmlStringTest, largeTree_of100000Siblings_comesBack)
{
    constexpr std::size_t COUNT = 100000;
    XmlString tree;
    for (std::size_t i = 0; i < COUNT; ++i)
        tree.addChild(L"a", L"x");
    const std::string xml = tree.toUtf8();
    EXPECT_EQ(xml.size(), 13 + COUNT * 8);
    const XmlString back = parsed(xml);
    EXPECT_EQ(back.countChildren(L"a"), COUNT);
    EXPECT_TRUE(back == tree);
}

TEST(XmlStringTest, largeTree_ofTextsOf10Megabytes_comesBack)
{
    constexpr std::size_t LENGTH = 5'000'000;
    XmlString tree = leaf(L"a", std::wstring(LENGTH, L'&'));
    tree.addChild(L"b", std::wstring(LENGTH, L' '));
    const auto back = XmlString::fromString(tree.toString());
    ASSERT_TRUE(back.hasValue());
    EXPECT_TRUE(*back == tree);
    EXPECT_EQ(back->getChild(L"a")->length(), LENGTH);
}

} // namespace Nolvex
