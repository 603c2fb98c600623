// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlReader.h"

#include <gtest/gtest.h>

#include <string>

namespace Nolvex::Detail {

namespace {

constexpr char UNCARRIABLE[] = "The text holds a character XML cannot carry";
constexpr char BAD_UTF8[] = "The text is no valid UTF-8";
constexpr char BAD_ENTITY[] = "Only the five predefined entities are allowed";
constexpr char END_OF_CDATA[] = "The characters ]]> are not allowed, nor is a CDATA section";

/// Returns the refusal of a document, or an empty text.
String refusal(const std::string& document)
{
    const auto tree = readXml(document);
    return tree ? String() : tree.error();
}

/// A document with one child, whose text begins at the tenth byte.
std::string document(const std::string& text)
{
    return std::string("<root><a>").append(text).append("</a></root>");
}

constexpr std::size_t TEXT_START = 9;

/// Returns the refusal of a document with one child, which has this text.
String textRefusal(const std::string& text)
{
    return refusal(document(text));
}

/// The sentence about a flaw in the text of `document`.
String flaw(const char* what, std::size_t byteInText)
{
    return describeXmlFlaw(what, TEXT_START + byteInText);
}

/// Returns the encoding of a code point, whether or not the code point is allowed.
std::string encoded(char32_t code)
{
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3f)); };
    if (code < 0x80)
        return {static_cast<char>(code)};
    if (code < 0x800)
        return {static_cast<char>(0xc0 | code >> 6), tail(0)};
    if (code < 0x10000)
        return {static_cast<char>(0xe0 | code >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xf0 | code >> 18), tail(12), tail(6), tail(0)};
}

} // namespace

TEST(XmlReaderTest, everyByteOfAsciiInAText_isAllowedUnlessXmlCannotCarryIt)
{
    const std::string white = " \t\r\n";
    for (int i = 0; i < 0x80; ++i) {
        const char byte = static_cast<char>(i);
        if (byte == '<')
            continue; // begins a tag
        const String found = textRefusal({'x', byte, 'y'});
        if (byte == '&')
            EXPECT_EQ(found, flaw(BAD_ENTITY, 1));
        else if (i < 0x20 && white.find(byte) == std::string::npos)
            EXPECT_EQ(found, flaw(UNCARRIABLE, 1)) << i;
        else
            EXPECT_EQ(found, String()) << i;
    }
}

TEST(XmlReaderTest, whiteSpaceBetweenElements_isOfTheFourBytesOnly)
{
    EXPECT_EQ(refusal(" \t\r\n<root \t\r\n> \t\r\n<a \t\r\n/> \t\r\n</root \t\r\n> \t\r\n"), String());
    for (const char* const other : {"\v", "\f", "\x1f", "\u00A0"})
        EXPECT_NE(refusal(std::string("<root>").append(other).append("<a/></root>")), String()) << other;
}

TEST(XmlReaderTest, firstOfSeveralFlaws_isReported)
{
    EXPECT_EQ(textRefusal("x&y\x01z\xff"), flaw(BAD_ENTITY, 1));
    EXPECT_EQ(textRefusal("x\x01y&z\xff"), flaw(UNCARRIABLE, 1));
    EXPECT_EQ(textRefusal("x\xffy&z\x01"), flaw(BAD_UTF8, 1));
}

TEST(XmlReaderTest, codePoints_areAllowedUnlessXmlCannotCarryThem)
{
    for (const char32_t code :
         {0x80U, 0x7ffU, 0x800U, 0xd7ffU, 0xe000U, 0xfdd0U, 0xfffdU, 0x10000U, 0x1ffffU, 0x10ffffU})
        EXPECT_EQ(textRefusal(std::string("x").append(encoded(code))), String())
            << std::hex << std::uint32_t(code);
    for (const char32_t code : {0xfffeU, 0xffffU})
        EXPECT_EQ(textRefusal(std::string("x").append(encoded(code))), flaw(UNCARRIABLE, 1));
    for (const char32_t code : {0xd800U, 0xdfffU, 0x110000U, 0x1fffffU})
        EXPECT_EQ(textRefusal(std::string("x").append(encoded(code))), flaw(BAD_UTF8, 1));
}

TEST(XmlReaderTest, noncharacterBehindOtherLetters_isReportedAtItsOwnPlace)
{
    EXPECT_EQ(textRefusal(std::string("\u00E4\u20AC").append(encoded(0xffff)).append(encoded(0xfffe))),
              flaw(UNCARRIABLE, 5));
}

TEST(XmlReaderTest, brokenSequences_areNoUtf8)
{
    for (const char* const broken : {"\x80", "\xbf", "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xc0\xaf",
                                     "\xe0\x80\xaf", "\xf0\x80\x80\xaf", "\xfe", "\xc3\xc3\xa4"})
        EXPECT_EQ(textRefusal(broken), flaw(BAD_UTF8, 0));
}

TEST(XmlReaderTest, predefinedEntities_areAllowedAndNothingElse)
{
    EXPECT_EQ(textRefusal("&amp;&lt;&gt;&quot;&apos;"), String());
    for (const char* const reference :
         {"&", "&amp", "&AMP;", "&#65;", "&#x41;", "&nbsp;", "& amp;", "&;", "&amp&"})
        EXPECT_EQ(textRefusal(reference), flaw(BAD_ENTITY, 0)) << reference;
    EXPECT_EQ(refusal("<root><a>&am"), flaw(BAD_ENTITY, 0)) << "the text ends within the entity";
}

TEST(XmlReaderTest, endOfACdataSection_isRefusedAndItsPartsAreNot)
{
    EXPECT_EQ(textRefusal("]]>"), flaw(END_OF_CDATA, 0));
    EXPECT_EQ(textRefusal("]]]>"), flaw(END_OF_CDATA, 1));
    EXPECT_EQ(textRefusal("]] > ]> ]"), String());
}

TEST(XmlReaderTest, resolvedText_isWhatTheReferencesStandFor)
{
    const auto tree = readXml(document("a&lt;b]] \u00E4&amp;lt;&apos;&quot; &gt;\u20AC."));
    ASSERT_TRUE(tree.hasValue());
    EXPECT_EQ(tree->text(0), "a<b]] \u00E4&lt;'\" >\u20AC.");
}

TEST(XmlReaderTest, tagBeyondTheForm_isRefusedAtItsPlace)
{
    constexpr char BAD_NAME[] = "The name is invalid or its tag is not closed";
    constexpr char ATTRIBUTE[] = "An attribute is not allowed";
    constexpr char NO_NAME[] = "A name must begin with an English letter or an underscore";
    constexpr char BAD_END[] = "The end tag is malformed";
    EXPECT_EQ(refusal("<root b='c'>"), describeXmlFlaw(ATTRIBUTE, 6));
    EXPECT_EQ(refusal("<root \t\r\n b=\"c\"/>"), describeXmlFlaw(ATTRIBUTE, 10));
    EXPECT_EQ(refusal("<root></root b=\"c\">"), describeXmlFlaw(BAD_END, 13));
    EXPECT_EQ(refusal("<root><a></a/></root>"), describeXmlFlaw(BAD_END, 12));
    EXPECT_EQ(refusal("<root:b></root:b>"), describeXmlFlaw(BAD_NAME, 5));
    EXPECT_EQ(refusal("<root\u00E4></root\u00E4>"), describeXmlFlaw(BAD_NAME, 5));
    EXPECT_EQ(refusal("<root/ >"), describeXmlFlaw(BAD_NAME, 6));
    EXPECT_EQ(refusal("<root>< a/></root>"), describeXmlFlaw(NO_NAME, 6));
    EXPECT_EQ(refusal("<root><a></a><b c='d'>"), describeXmlFlaw(ATTRIBUTE, 16));
}

TEST(XmlReaderTest, textBehindWhiteSpace_isRefusedWhereTheTextBegins)
{
    EXPECT_EQ(refusal("<root>  x</root>"), describeXmlFlaw("The root element must not hold text", 8));
    EXPECT_EQ(refusal("<root><a><b/>\n x</a></root>"),
              describeXmlFlaw("An element may hold text or elements, not both", 15));
}

TEST(XmlReaderTest, markupThatIsNoTag_isNamed)
{
    EXPECT_EQ(refusal("<root><!-- x --></root>"), describeXmlFlaw("A comment is not allowed", 6));
    EXPECT_EQ(refusal("<root/> <!-- x -->"), describeXmlFlaw("A comment is not allowed", 8));
    EXPECT_EQ(textRefusal("<![CDATA[x]]>"), flaw("A CDATA section is not allowed", 0));
    EXPECT_EQ(textRefusal("x<![CDATA[y]]>"), flaw("A CDATA section is not allowed", 1));
    EXPECT_EQ(refusal("<!DOCTYPE a>"), describeXmlFlaw("A document type definition is not allowed", 0));
    EXPECT_EQ(refusal("<![CDATA"), describeXmlFlaw("A document type definition is not allowed", 0));
    EXPECT_EQ(refusal("<root/><?x?>"),
              describeXmlFlaw("A processing instruction or a second declaration is not allowed", 7));
    EXPECT_EQ(textRefusal("What? No!"), String());
    EXPECT_EQ(refusal("<"), describeXmlFlaw("A name must begin with an English letter or an underscore", 0));
}

TEST(XmlReaderTest, textThatEndsInsideAnElement_isSaidToDoSo)
{
    for (const char* const unended :
         {"<root>", "<root> ", "<root><a>", "<root><a>x", "<root><a/>", "<root></root", "<root></root "})
        EXPECT_EQ(refusal(unended),
                  describeXmlFlaw("The text ends inside an element", std::string_view(unended).size()));
}

} // namespace Nolvex::Detail
