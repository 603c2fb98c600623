// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlCharacters.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace Nolvex::Detail {

namespace {

constexpr char UNCARRIABLE[] = "The text holds a character XML cannot carry";
constexpr char BAD_UTF8[] = "The text is no valid UTF-8";
constexpr char BAD_ENTITY[] = "Only the five predefined entities are allowed";
constexpr char END_OF_CDATA[] = "The characters ]]> are not allowed, nor is a CDATA section";

struct Flaw
{
    std::string what;
    std::size_t byte = 0;

    bool operator==(const Flaw&) const = default;
};

void PrintTo(const Flaw& flaw, std::ostream* out)
{
    *out << flaw.what << " at " << flaw.byte;
}

std::optional<Flaw> flawIn(const std::string& text, std::size_t start = 0)
{
    try {
        checkXmlCharacters(text, start);
    } catch (const XmlFlaw& flaw) {
        return Flaw{flaw.what, flaw.byte};
    }
    return {};
}

std::optional<Flaw> markupFlawIn(const std::string& text, std::size_t start)
{
    try {
        refuseXmlMarkup(text, start);
    } catch (const XmlFlaw& flaw) {
        return Flaw{flaw.what, flaw.byte};
    }
    return {};
}

/// An element around a text. The text begins at the fourth byte.
std::string element(const std::string& text)
{
    return std::string("<a>").append(text).append("</a>");
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

TEST(XmlCharactersTest, isXmlWhite_isTrueForTheFourBytesOnly)
{
    for (int byte = 0; byte < 256; ++byte) {
        const bool isWhite = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
        EXPECT_EQ(isXmlWhite(static_cast<char>(byte)), isWhite) << byte;
    }
}

TEST(XmlCharactersTest, everyByteOfAsciiInAText_isAllowedUnlessXmlCannotCarryIt)
{
    for (int byte = 0; byte < 0x80; ++byte) {
        if (byte == '<')
            continue; // begins a tag
        const std::optional<Flaw> flaw = flawIn(element({'x', static_cast<char>(byte), 'y'}));
        if (byte == '&')
            EXPECT_EQ(flaw, (Flaw{BAD_ENTITY, 4}));
        else if (byte < 0x20 && !isXmlWhite(static_cast<char>(byte)))
            EXPECT_EQ(flaw, (Flaw{UNCARRIABLE, 4})) << byte;
        else
            EXPECT_EQ(flaw, std::nullopt) << byte;
    }
}

// The check looks at blocks of bytes at once, and at the bytes around the ends of the blocks differently.
TEST(XmlCharactersTest, flawAtAnyPlaceOfALongText_isFoundThere)
{
    for (std::size_t length = 1; length < 200; length += 7) {
        for (std::size_t place = 0; place < length; ++place) {
            std::string text(length, 'x');
            text[place] = '\x01';
            ASSERT_EQ(flawIn(element(text)), (Flaw{UNCARRIABLE, 3 + place})) << length;
            text[place] = '\xff';
            ASSERT_EQ(flawIn(element(text)), (Flaw{BAD_UTF8, 3 + place})) << length;
        }
    }
}

TEST(XmlCharactersTest, firstOfSeveralFlaws_isReported)
{
    EXPECT_EQ(flawIn(element("x&y\x01z\xff")), (Flaw{BAD_ENTITY, 4}));
    EXPECT_EQ(flawIn(element("x\x01y&z\xff")), (Flaw{UNCARRIABLE, 4}));
    EXPECT_EQ(flawIn(element("x\xffy&z\x01")), (Flaw{BAD_UTF8, 4}));
}

TEST(XmlCharactersTest, textBeforeTheStart_isNotLookedAt)
{
    const std::string text = std::string("\x01&\xff=").append(element("x"));
    EXPECT_EQ(flawIn(text), (Flaw{UNCARRIABLE, 0}));
    EXPECT_EQ(flawIn(text, 4), std::nullopt);
    EXPECT_EQ(flawIn(text + '\x02', 4), (Flaw{UNCARRIABLE, text.size()}));
    EXPECT_EQ(flawIn("", 0), std::nullopt);
    EXPECT_EQ(flawIn("x", 1), std::nullopt);
}

TEST(XmlCharactersTest, codePoints_areAllowedUnlessXmlCannotCarryThem)
{
    for (const char32_t code :
         {0x80U, 0x7ffU, 0x800U, 0xd7ffU, 0xe000U, 0xfdd0U, 0xfffdU, 0x10000U, 0x1ffffU, 0x10ffffU})
        EXPECT_EQ(flawIn(element(std::string("x").append(encoded(code)))), std::nullopt)
            << std::hex << std::uint32_t(code);
    for (const char32_t code : {0xfffeU, 0xffffU})
        EXPECT_EQ(flawIn(element(std::string("x").append(encoded(code)))), (Flaw{UNCARRIABLE, 4}));
    for (const char32_t code : {0xd800U, 0xdfffU, 0x110000U, 0x1fffffU})
        EXPECT_EQ(flawIn(element(std::string("x").append(encoded(code)))), (Flaw{BAD_UTF8, 4}));
}

TEST(XmlCharactersTest, noncharacterBehindOtherLetters_isReportedAtItsOwnPlace)
{
    EXPECT_EQ(flawIn(element(std::string("\u00E4\u20AC").append(encoded(0xffff)).append(encoded(0xfffe)))),
              (Flaw{UNCARRIABLE, 8}));
}

TEST(XmlCharactersTest, brokenSequences_areNoUtf8)
{
    for (const char* const broken : {"\x80", "\xbf", "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xc0\xaf",
                                     "\xe0\x80\xaf", "\xf0\x80\x80\xaf", "\xfe", "\xc3\xc3\xa4"})
        EXPECT_EQ(flawIn(element(broken)), (Flaw{BAD_UTF8, 3}));
}

TEST(XmlCharactersTest, predefinedEntities_areAllowedAndNothingElse)
{
    EXPECT_EQ(flawIn(element("&amp;&lt;&gt;&quot;&apos;")), std::nullopt);
    for (const char* const reference :
         {"&", "&amp", "&AMP;", "&#65;", "&#x41;", "&nbsp;", "& amp;", "&;", "&amp&"})
        EXPECT_EQ(flawIn(element(reference)), (Flaw{BAD_ENTITY, 3})) << reference;
    EXPECT_EQ(flawIn("&am"), (Flaw{BAD_ENTITY, 0})) << "the text ends within the entity";
}

TEST(XmlCharactersTest, endOfACdataSection_isRefusedAndItsPartsAreNot)
{
    EXPECT_EQ(flawIn(element("]]>")), (Flaw{END_OF_CDATA, 3}));
    EXPECT_EQ(flawIn(element("]]]>")), (Flaw{END_OF_CDATA, 4}));
    EXPECT_EQ(flawIn(element("]] > ]> ]")), std::nullopt);
    EXPECT_EQ(flawIn("]]"), std::nullopt);
}

TEST(XmlCharactersTest, attributesAndForeignNames_areRefusedAtTheirPlace)
{
    EXPECT_EQ(flawIn("<a b='c'>"), (Flaw{XML_ATTRIBUTE, 3}));
    EXPECT_EQ(flawIn("<a \t\r\n b=\"c\"/>"), (Flaw{XML_ATTRIBUTE, 7}));
    EXPECT_EQ(flawIn("</a b=\"c\">"), std::nullopt) << "pugixml refuses this by itself";
    EXPECT_EQ(flawIn("<a:b></a:b>"), (Flaw{BAD_XML_NAME, 2}));
    EXPECT_EQ(flawIn("<:a></:a>"), (Flaw{BAD_XML_NAME, 1}));
    EXPECT_EQ(flawIn("<a\u00E4></a\u00E4>"), (Flaw{BAD_XML_NAME, 2}));
    EXPECT_EQ(flawIn("<\u00E4></\u00E4>"), (Flaw{BAD_XML_NAME, 1}));
    EXPECT_EQ(flawIn("<a></a><b c='d'>"), (Flaw{XML_ATTRIBUTE, 10}));
}

TEST(XmlCharactersTest, equalsSignsAndColonsInATextOrBehindATag_areAllowed)
{
    EXPECT_EQ(flawIn(element("a=b:c \u00E4=\u00E4")), std::nullopt);
    EXPECT_EQ(flawIn("<a><b>x=1</b> <c>y:2</c></a>"), std::nullopt);
    EXPECT_EQ(flawIn("<a >=</a >"), std::nullopt);
    EXPECT_EQ(flawIn("=:\u00E4"), std::nullopt) << "no bracket stands before them";
}

TEST(XmlCharactersTest, markupThatIsNoTag_isNamed)
{
    EXPECT_EQ(flawIn("<a><!-- x --></a>"), (Flaw{"A comment is not allowed", 3}));
    EXPECT_EQ(flawIn("<a><![CDATA[x]]></a>"), (Flaw{"A CDATA section is not allowed", 3}));
    EXPECT_EQ(flawIn("<!DOCTYPE a>"), (Flaw{"A document type definition is not allowed", 0}));
    EXPECT_EQ(flawIn("<a><?x?></a>"),
              (Flaw{"A processing instruction or a second declaration is not allowed", 3}));
    EXPECT_EQ(flawIn(element("What? No!")), std::nullopt);
    EXPECT_EQ(flawIn("<?xml?>!?", 7), std::nullopt) << "the declaration lies before the start";
    EXPECT_EQ(flawIn("<!x", 1), std::nullopt);
}

TEST(XmlCharactersTest, refuseXmlMarkup_namesWhatBeginsThere)
{
    EXPECT_EQ(markupFlawIn("x<!--", 1), (Flaw{"A comment is not allowed", 1}));
    EXPECT_EQ(markupFlawIn("<![CDATA[", 0), (Flaw{"A CDATA section is not allowed", 0}));
    EXPECT_EQ(markupFlawIn("<![CDATA", 0), (Flaw{"A document type definition is not allowed", 0}));
    EXPECT_EQ(markupFlawIn("<!-", 0), (Flaw{"A document type definition is not allowed", 0}));
    EXPECT_EQ(markupFlawIn("<1>", 0), (Flaw{"A name must begin with an English letter or an underscore", 0}));
    EXPECT_EQ(markupFlawIn("<", 0), (Flaw{"A name must begin with an English letter or an underscore", 0}));
}

} // namespace Nolvex::Detail
