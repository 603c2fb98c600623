// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

namespace Nolvex {

namespace {

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

String errorOf(std::string_view xml)
{
    const auto result = XmlString::fromUtf8(xml);
    return result ? String() : result.error();
}

struct Malformed
{
    const char* what;
    std::string xml;
};

std::vector<Malformed> malformedRoots()
{
    return {
        {"empty", ""},
        {"white space only", " \r\n\t"},
        {"text only", "root"},
        {"text before the root", "x<root></root>"},
        {"text after the root", "<root></root>x"},
        {"an element after the root", "<root></root><root></root>"},
        {"an empty element after the root", "<root/><a/>"},
        {"an end tag after the root", "<root></root></root>"},
        {"an end tag first", "</root>"},
        {"another root", "<message></message>"},
        {"a root in capitals", "<Root></Root>"},
        {"a root beginning alike", "<roots></roots>"},
        {"a byte order mark", "\xEF\xBB\xBF<root></root>"},
        {"a lone less-than sign", "<"},
        {"a name only", "<root"},
        {"a start tag only", "<root>"},
    };
}

std::vector<Malformed> malformedTags()
{
    return {
        {"an end tag not closed", "<root></root"},
        {"an end tag without name", "<root></>"},
        {"an element not ended", "<root><a></root>"},
        {"a text not ended", "<root><a>x"},
        {"tags crossing", "<root><a><b></a></b></root>"},
        {"an end tag that differs in case", "<root><a></A></root>"},
        {"an end tag that is longer", "<root><a></ab></root>"},
        {"an end tag with an attribute", "<root><a></a b=\"c\"></root>"},
        {"an end tag with a slash", "<root><a></a/></root>"},
        {"white space before a name", "<root>< a></a></root>"},
        {"white space before an end tag's name", "<root><a></ a></root>"},
        {"a slash in the middle", "<root><a/b></root>"},
        {"a slash before white space", "<root><a/ ></root>"},
        {"no name", "<root><></></root>"},
        {"a name beginning with a digit", "<root><1a></1a></root>"},
        {"a name beginning with a dash", "<root><-a></-a></root>"},
        {"a name beginning with a dot", "<root><.a></.a></root>"},
        {"a name with a colon", "<root><x:a></x:a></root>"},
        {"a name with a letter that is not English", "<root><\xC3\xA4></\xC3\xA4></root>"},
        {"a name holding a letter that is not English", "<root><a\xC3\xA4></a\xC3\xA4></root>"},
        {"a less-than sign within a tag", "<root><a<b></a></root>"},
        {"a less-than sign as text", "<root><a>1 < 2</a></root>"},
        {"an attribute", "<root><a b=\"c\"></a></root>"},
        {"an attribute of the root", "<root a=\"b\"></root>"},
        {"an attribute of an empty element", "<root><a b='c'/></root>"},
        {"an attribute without value", "<root><a b></a></root>"},
        {"a name space", "<root xmlns=\"urn:x\"></root>"},
    };
}

std::vector<Malformed> malformedContents()
{
    return {
        {"text beside a child, before", "<root><a>x<b></b></a></root>"},
        {"text beside a child, after", "<root><a><b></b>x</a></root>"},
        {"text between children", "<root><a><b/>x<c/></a></root>"},
        {"an entity beside a child", "<root><a><b/>&amp;</a></root>"},
        {"text in the root", "<root>x</root>"},
        {"text in the root beside a child", "<root><a/>x</root>"},
        {"the end of a CDATA section in a text", "<root><a>]]></a></root>"},
        {"65 levels", nested(65)},
        {"100,000 levels", nested(100000)},
    };
}

std::vector<Malformed> foreignMarkup()
{
    return {
        {"a comment", "<root><!-- x --></root>"},
        {"a comment before the root", "<!-- x --><root></root>"},
        {"a comment after the root", "<root></root><!-- x -->"},
        {"a comment in a text", "<root><a>x<!-- y -->z</a></root>"},
        {"a CDATA section", "<root><a><![CDATA[x]]></a></root>"},
        {"a document type", "<!DOCTYPE root><root></root>"},
        {"a document type with an entity", "<!DOCTYPE root [<!ENTITY a \"b\">]><root><a>&a;</a></root>"},
        {"a document type inside", "<root><!DOCTYPE root></root>"},
        {"a processing instruction", "<root><?x y?></root>"},
        {"a processing instruction before the root", "<?x y?><root></root>"},
        {"a processing instruction named like a declaration", "<?xml-stylesheet href=\"x\"?><root></root>"},
    };
}

std::vector<Malformed> malformedDeclarations()
{
    return {
        {"a declaration after white space", " <?xml version=\"1.0\"?><root></root>"},
        {"two declarations", "<?xml version=\"1.0\"?><?xml version=\"1.0\"?><root></root>"},
        {"a declaration inside", "<root><?xml version=\"1.0\"?></root>"},
        {"a declaration only", "<?xml version=\"1.0\"?>"},
        {"a declaration without version", "<?xml encoding=\"UTF-8\"?><root></root>"},
        {"a declaration of nothing", "<?xml?><root></root>"},
        {"a declaration of another version", "<?xml version=\"1.1\"?><root></root>"},
        {"a declaration of another encoding", "<?xml version=\"1.0\" encoding=\"UTF-16\"?><root></root>"},
        {"a declaration of a longer encoding", "<?xml version=\"1.0\" encoding=\"UTF-8x\"?><root></root>"},
        {"a declaration of no encoding", "<?xml version=\"1.0\" encoding=\"\"?><root></root>"},
        {"a declaration in another order", "<?xml encoding=\"UTF-8\" version=\"1.0\"?><root></root>"},
        {"a declaration without quotes", "<?xml version=1.0?><root></root>"},
        {"a declaration with quotes that differ", "<?xml version=\"1.0'?><root></root>"},
        {"a declaration without equals sign", "<?xml version \"1.0\"?><root></root>"},
        {"a declaration without white space", "<?xml version=\"1.0\"encoding=\"UTF-8\"?><root></root>"},
        {"a declaration standing half alone", "<?xml version=\"1.0\" standalone=\"maybe\"?><root></root>"},
        {"a declaration with more", "<?xml version=\"1.0\" a=\"b\"?><root></root>"},
        {"a declaration not ended", "<?xml version=\"1.0\"><root></root>"},
        {"a declaration cut off", "<?xml version=\"1.0\""},
        {"a declaration cut off in a value", "<?xml version=\"1.0"},
        {"a declaration in capitals", "<?XML version=\"1.0\"?><root></root>"},
    };
}

std::vector<Malformed> malformedReferences()
{
    return {
        {"an unknown entity", "<root><a>&nbsp;</a></root>"},
        {"an entity in capitals", "<root><a>&AMP;</a></root>"},
        {"an entity without semicolon", "<root><a>&amp</a></root>"},
        {"a lone ampersand", "<root><a>x & y</a></root>"},
        {"an ampersand at the end", "<root><a>x&</a></root>"},
        {"an empty entity", "<root><a>&;</a></root>"},
        {"a decimal reference", "<root><a>&#65;</a></root>"},
        {"a hexadecimal reference", "<root><a>&#x41;</a></root>"},
        {"a reference to zero", "<root><a>&#0;</a></root>"},
        {"an entity between elements", "<root>&lt;</root>"},
    };
}

std::vector<Malformed> forbiddenCharacters()
{
    std::vector<Malformed> documents = {
        {"a zero byte", "<root><a>"s + '\0' + "</a></root>"},
        {"a zero byte at the end", "<root></root>"s + '\0'},
        {"the control 1", "<root><a>\x01</a></root>"},
        {"the control 31", "<root><a>\x1F</a></root>"},
        {"a form feed between elements", "<root>\x0C</root>"},
        {"U+FFFE", "<root><a>\xEF\xBF\xBE</a></root>"},
        {"U+FFFF", "<root><a>\xEF\xBF\xBF</a></root>"},
        {"UTF-16", "<\0r\0o\0o\0t\0/\0>\0"s},
    };
    for (const char* sequence :
         {"\x80", "\xFF", "\xC0\xBC", "\xE0\x80\xBC", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80"}) {
        documents.push_back({"broken UTF-8 in a text", "<root><a>"s + sequence + "</a></root>"});
        documents.push_back({"broken UTF-8 at the end", "<root></root>"s + sequence});
    }
    return documents;
}

void expectRefused(const std::vector<Malformed>& documents)
{
    for (const Malformed& document : documents) {
        const auto result = XmlString::fromUtf8(document.xml);
        ASSERT_FALSE(result.hasValue()) << document.what;
        EXPECT_NE(result.error().find(L"(byte "), String::NPOS) << document.what;
        EXPECT_GT(result.error().find(L"(byte "), 10U) << document.what;
    }
}

} // namespace

TEST(XmlFormTest, fromUtf8_malformedRoot_isRefusedWithAnErrorText)
{
    expectRefused(malformedRoots());
}

TEST(XmlFormTest, fromUtf8_malformedTag_isRefusedWithAnErrorText)
{
    expectRefused(malformedTags());
}

TEST(XmlFormTest, fromUtf8_textWhereItMustNotBe_isRefusedWithAnErrorText)
{
    expectRefused(malformedContents());
}

TEST(XmlFormTest, fromUtf8_constructBeyondTheForm_isRefusedWithAnErrorText)
{
    expectRefused(foreignMarkup());
}

TEST(XmlFormTest, fromUtf8_malformedDeclaration_isRefusedWithAnErrorText)
{
    expectRefused(malformedDeclarations());
}

TEST(XmlFormTest, fromUtf8_referenceBeyondTheFive_isRefusedWithAnErrorText)
{
    expectRefused(malformedReferences());
}

TEST(XmlFormTest, fromUtf8_characterThatMustNotBe_isRefusedWithAnErrorText)
{
    expectRefused(forbiddenCharacters());
}

TEST(XmlFormTest, fromUtf8_everyBeginningOfADocument_isRefused)
{
    const std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root><a>x&amp;\xC3\xA4</a> <b><c/></b></root>";
    ASSERT_TRUE(XmlString::fromUtf8(xml).hasValue());
    for (std::size_t length = 0; length < xml.size(); ++length)
        EXPECT_FALSE(XmlString::fromUtf8(xml.substr(0, length)).hasValue()) << length;
}

TEST(XmlFormTest, fromUtf8_malformed_saysWhatAndWhere)
{
    EXPECT_EQ(errorOf("<root><!-- --></root>"), L"A comment is not allowed (byte 6).");
    EXPECT_EQ(errorOf("<root><a>&x;</a></root>"), L"Only the five predefined entities are allowed (byte 9).");
    EXPECT_EQ(errorOf("<root><a></b></root>"), L"The end tag does not match the start tag (byte 9).");
    EXPECT_EQ(errorOf("<root><a>\xC3</a></root>"), L"The text is no valid UTF-8 (byte 9).");
    EXPECT_EQ(errorOf(" "), L"There is no root element (byte 1).");
    EXPECT_EQ(errorOf("<root>"), L"The text ends inside an element (byte 6).");
    EXPECT_EQ(errorOf("\n<rood/>"), L"The root element must be named root (byte 1).");
}

TEST(XmlFormTest, fromUtf8_markupBeyondTheForm_isNamedAtItsFirstByte)
{
    EXPECT_EQ(errorOf("<root><a/><!-- <x> --></root>"), L"A comment is not allowed (byte 10).");
    EXPECT_EQ(errorOf("<root><a><!-- y</a></root>"), L"A comment is not allowed (byte 9).");
    EXPECT_EQ(errorOf("<root><a>x<![CDATA[y</a></root>"), L"A CDATA section is not allowed (byte 10).");
    EXPECT_EQ(errorOf("<!DOCTYPE root><root/>"), L"A document type definition is not allowed (byte 0).");
    EXPECT_EQ(errorOf("<root><?x y?></root>"),
              L"A processing instruction or a second declaration is not allowed (byte 6).");
    EXPECT_EQ(errorOf("<root><1/></root>"),
              L"A name must begin with an English letter or an underscore (byte 6).");
}

TEST(XmlFormTest, fromUtf8_elementBeyondTheForm_isNamedWithItsPosition)
{
    EXPECT_EQ(errorOf("<root><a:b/></root>"), L"The name is invalid or its tag is not closed (byte 8).");
    EXPECT_EQ(errorOf("<root><a  b=\"c\"/></root>"), L"An attribute is not allowed (byte 10).");
    EXPECT_EQ(errorOf("<root><a>x<b/></a></root>"),
              L"An element may hold text or elements, not both (byte 10).");
    EXPECT_EQ(errorOf("<root><a><b/>x</a></root>"),
              L"An element may hold text or elements, not both (byte 13).");
    EXPECT_EQ(errorOf("<root>x</root>"), L"The root element must not hold text (byte 6).");
    EXPECT_EQ(errorOf("<root><a/>x</root>"), L"The root element must not hold text (byte 10).");
    EXPECT_EQ(errorOf("<root/><a/>"), L"Nothing may follow the root element (byte 7).");
    EXPECT_EQ(errorOf("<root/>x"), L"Nothing may follow the root element (byte 7).");
    EXPECT_EQ(errorOf(nested(65)), L"The elements are nested too deeply (byte 195).");
}

TEST(XmlFormTest, fromUtf8_behindADeclaration_countsPositionsFromTheFirstByte)
{
    const std::string declaration = "<?xml version=\"1.0\"?>";
    ASSERT_EQ(declaration.size(), 21U);
    EXPECT_EQ(errorOf(declaration + "<root><!-- --></root>"), L"A comment is not allowed (byte 27).");
    EXPECT_EQ(errorOf(declaration + "<root><a b='c'/></root>"), L"An attribute is not allowed (byte 30).");
    EXPECT_EQ(errorOf(declaration + "<root><a></b></root>"),
              L"The end tag does not match the start tag (byte 30).");
    EXPECT_EQ(errorOf(declaration + "x<root/>"), L"No text may stand before the root element (byte 21).");
    EXPECT_EQ(errorOf(declaration + "\xEF\xBB\xBF<root/>"),
              L"No text may stand before the root element (byte 21).");
    EXPECT_EQ(errorOf(declaration), L"There is no root element (byte 21).");
}

// The declaration is parsed as an element is, and none of the ways to end an element early may end the
// declaration.
TEST(XmlFormTest, fromUtf8_declarationEndedLikeAnElement_isRefused)
{
    for (const char* document :
         {"<?xml version=\"1.0\"/><root/>", "<?xml version=\"1.0\"/>x?><root/>",
          "<?xml version=\"1.0\"/><!DOCTYPE?><root/>", "<?xml version=\"1.0\"/?><root/>",
          "<?xml version=\"1.0\">?></xml><root/>", "<?xml version=\"1.0\"></xml?><root/>",
          "<?xml version=\"1.0\"></xml>?><root/>", "<?xml version=\"1.0\"></xml><?x?><root/>",
          "<?xml version=\"1.0\"><a/></xml ?><root/>", "<?xml version=\"1.0\"></xml><root><a>?></a></root>",
          "<?xml version=\"1.0?>\"?><root/>", "<?xml ?><root/>",
          "<?xml version=\"1.0\" version=\"1.0\"?><root/>"})
        EXPECT_FALSE(XmlString::fromUtf8(document).hasValue()) << document;
}

TEST(XmlFormTest, fromUtf8_flawAtEachPlaceOfALongText_isFoundThere)
{
    const std::string start = "<root><a>";
    for (const std::string flaw : {"&x;", "]]>", "\x01", "\xC3", "\xEF\xBF\xBF"}) {
        for (std::size_t before = 0; before < 70; ++before) {
            const String error = errorOf(start + std::string(before, 'x') + flaw + "xyz</a></root>");
            const String position = L"(byte " + String(std::to_wstring(start.size() + before)) + L").";
            EXPECT_NE(error.find(position), String::NPOS) << before << error.toUtf8();
        }
    }
}

// These characters are flaws in tags only, however long the texts around them are.
TEST(XmlFormTest, fromUtf8_textWithCharactersForbiddenInTags_isAccepted)
{
    const std::string text = "a:b=\"c\" d = 'e' > f! g? <h/> ]] \xC3\xA4:";
    for (std::size_t before = 0; before < 140; ++before) {
        XmlString tree;
        tree.addChild(L"Key", String(std::wstring(before, L'x')) + String::fromUtf8(text));
        const auto back = XmlString::fromUtf8(tree.toUtf8());
        ASSERT_TRUE(back.hasValue()) << before;
        EXPECT_TRUE(*back == tree) << before;
    }
    EXPECT_TRUE(XmlString::fromUtf8("<root><a>x > y: z=\"1\"</a><b>></b></root>").hasValue());
}

TEST(XmlFormTest, fromUtf8_tagBeyondTheFormAtEachPlaceOfALongDocument_isFoundThere)
{
    const std::string start = "<root><a>b > c: d = \"e\"</a><f>";
    for (const std::string tag :
         {"<!-- -->", "<?x?>", "<a:b/>", "<a\xC3\xA4/>", "<a b=\"c\"/>", "<a b = 'c'></a>"}) {
        for (std::size_t before = 0; before < 140; ++before) {
            const std::string text(before, 'x');
            const String error = errorOf(start + text + "</f>" + tag + "<g>h</g></root>");
            const std::size_t first = start.size() + text.size() + 4;
            const std::size_t flaw = first + (tag[1] == 'a' ? (tag[2] == ' ' ? 3 : 2) : 0);
            const String position = L"(byte " + String(std::to_wstring(flaw)) + L").";
            EXPECT_NE(error.find(position), String::NPOS) << tag << before << error.toUtf8();
        }
    }
}

// The first flaw in a tag is reported before the tags are compared.
TEST(XmlFormTest, fromUtf8_tagsBeyondTheFormThatDoNotMatchEither_areReportedByTheirForm)
{
    EXPECT_EQ(errorOf("<root><a:b></root>"), L"The name is invalid or its tag is not closed (byte 8).");
    EXPECT_EQ(errorOf("<root><a b=\"c\"></root>"), L"An attribute is not allowed (byte 9).");
    EXPECT_EQ(errorOf("<root><!-- --></a></root>"), L"A comment is not allowed (byte 6).");
    EXPECT_EQ(errorOf("<root></:a></root>"), L"The end tag does not match the start tag (byte 6).");
}

TEST(XmlFormTest, fromUtf8_largeMalformedDocuments_areRefusedWithWhatIsWrongAtTheirEnd)
{
    constexpr std::size_t COUNT = 1'000'000;
    std::string references = "<root><a>";
    for (std::size_t i = 0; i < COUNT; ++i)
        references += "&lt;";
    EXPECT_EQ(errorOf(references), L"The text ends inside an element (byte 4000009).");
    EXPECT_EQ(errorOf("<root><a>" + std::string(COUNT, ']')),
              L"The text ends inside an element (byte 1000009).");
    EXPECT_EQ(errorOf("<?xml version=" + std::string(COUNT, ' ')),
              L"The declaration is malformed (byte 1000014).");
    EXPECT_EQ(errorOf("<root></" + std::string(COUNT, 'a') + std::string(COUNT, ':')),
              L"The end tag does not match the start tag (byte 6).");
    EXPECT_EQ(errorOf('<' + std::string(COUNT, 'a') + '/' + std::string(COUNT, ':')),
              L"The name is invalid or its tag is not closed (byte 1000002).");
    EXPECT_EQ(errorOf('<' + std::string(COUNT, 'a')),
              L"The name is invalid or its tag is not closed (byte 1000001).");
}

} // namespace Nolvex
