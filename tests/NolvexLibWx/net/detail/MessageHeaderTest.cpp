// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/MessageHeader.h"

#include "../Connections.h"

#include <gtest/gtest.h>

#include <limits>

namespace Nolvex::Wx::Legacy::Detail {
namespace {

using Tests::element;
using Tests::tree;

// Texts that are not numbers of any kind.
const char* const NO_NUMBERS[] = {"",         " ",
                                  "+1",       "1 ",
                                  " 1",       "0x10",
                                  "1e3",      "1.0",
                                  "12ab",     "abc",
                                  "1,000",    "--1",
                                  "1-",       "-",
                                  "\xD9\xA1", "\xEF\xBC\x91",
                                  "1\n",      "inf",
                                  "nan",      "#1",
                                  "1 2",      "9999999999999999999999"};

std::string treeText(const std::string& children)
{
    return "<root>" + children + "</root>";
}

Optional<std::int32_t> typeOf(const std::string& type)
{
    const auto parsed = parseMessageHeader(treeText(element("DataType", type)));
    return parsed ? Optional<std::int32_t>(parsed->type) : Optional<std::int32_t>();
}

XmlString metadataTree(const std::string& size, const std::string& compression)
{
    return *XmlString::fromUtf8(treeText(element("FileSize", size) + element("Compressed", compression)));
}

TEST(MessageHeaderTest, parse_keepsTheWholeTree)
{
    const auto parsed = parseMessageHeader(treeText(element("a", "b") + element("DataType", "1")));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->type, 1);
    EXPECT_EQ(parsed->tree.childCount(), 2u);
    EXPECT_EQ(parsed->tree.getChild(L"a"), String(L"b"));
}

TEST(MessageHeaderTest, parse_takesAnyNumberOf32BitsForAType)
{
    EXPECT_EQ(typeOf("0"), 0);
    EXPECT_EQ(typeOf("2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(typeOf("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(MessageHeaderTest, parse_ofATypeThatWouldWrap_isNone)
{
    for (const char* type : {"4294967296", "4294967297", "2147483648", "-2147483649", "18446744073709551617"})
        EXPECT_FALSE(typeOf(type)) << type;
}

TEST(MessageHeaderTest, parse_ofATypeThatIsNoNumber_isNone)
{
    for (const char* type : NO_NUMBERS)
        EXPECT_FALSE(typeOf(type)) << type;
}

TEST(MessageHeaderTest, parse_ofSeveralTypes_takesTheFirst)
{
    const auto parsed = parseMessageHeader(treeText(element("DataType", "2") + element("DataType", "0")));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->type, 2);
}

TEST(MessageHeaderTest, parse_ofATypeDeeperInTheTree_isNone)
{
    EXPECT_FALSE(parseMessageHeader(treeText(element("a", element("DataType", "0")))));
    EXPECT_FALSE(parseMessageHeader(treeText(element("DataType", element("a", "0")))));
}

TEST(MessageHeaderTest, parse_ofWhatIsNoTree_isNone)
{
    for (const char* text : {"", "<", "DataType", "<root>", "<root><DataType>0</root>", "<other></other>"})
        EXPECT_FALSE(parseMessageHeader(text)) << text;
}

TEST(MessageHeaderTest, parse_ofBrokenUtf8InAText_replacesIt)
{
    const auto parsed = parseMessageHeader(treeText(element("DataType", "0") + element("a", "x\xFFy")));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->tree.getChild(L"a"), String(L"x\xFFFDy"));
}

TEST(MessageHeaderTest, metadata_takesSizesOf63Bits)
{
    const auto metadata = parseBodyMetadata(metadataTree("9223372036854775807", "-1"));
    ASSERT_TRUE(metadata);
    EXPECT_EQ(metadata->size, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(metadata->compression, -1);
}

TEST(MessageHeaderTest, metadata_withANumberThatIsNone_isNone)
{
    for (const char* number : NO_NUMBERS) {
        EXPECT_FALSE(parseBodyMetadata(metadataTree(number, "0"))) << number;
        EXPECT_FALSE(parseBodyMetadata(metadataTree("1", number))) << number;
        EXPECT_FALSE(parseCompressedSize(*XmlString::fromUtf8(treeText(element("CompressedSize", number)))))
            << number;
    }
}

TEST(MessageHeaderTest, metadata_beyondItsRange_isNone)
{
    EXPECT_FALSE(parseBodyMetadata(metadataTree("-1", "0")));
    EXPECT_FALSE(parseBodyMetadata(metadataTree("9223372036854775808", "0")));
    EXPECT_FALSE(parseBodyMetadata(metadataTree("1", "4294967297")));
    EXPECT_FALSE(parseCompressedSize(*XmlString::fromUtf8(treeText(element("CompressedSize", "-1")))));
}

TEST(MessageHeaderTest, metadata_missingOrContradicting_isNone)
{
    const std::string size = element("FileSize", "1");
    const std::string compression = element("Compressed", "0");
    const std::string compressedSize = element("CompressedSize", "2");
    for (const std::string& children :
         {std::string(), size, compression, size + element("FileSize", "2") + compression,
          size + compression + element("Compressed", "1"), size + element("FileSize", "") + compression,
          element("a", size + compression)})
        EXPECT_FALSE(parseBodyMetadata(*XmlString::fromUtf8(treeText(children)))) << children;
    EXPECT_FALSE(parseCompressedSize(XmlString()));
    EXPECT_FALSE(
        parseCompressedSize(*XmlString::fromUtf8(treeText(compressedSize + element("CompressedSize", "3")))));
    EXPECT_EQ(parseCompressedSize(*XmlString::fromUtf8(treeText(compressedSize))), 2);
}

TEST(MessageHeaderTest, metadata_thatIsThereTwiceButEqual_counts)
{
    const std::string once =
        element("FileSize", "1") + element("Compressed", "0") + element("CompressedSize", "2");
    const XmlString twice =
        *XmlString::fromUtf8(treeText(once + element("a", element("FileSize", "5")) + once));
    const auto metadata = parseBodyMetadata(twice);
    ASSERT_TRUE(metadata);
    EXPECT_EQ(metadata->size, 1);
    EXPECT_EQ(metadata->compression, 0);
    EXPECT_EQ(parseCompressedSize(twice), 2);
}

TEST(MessageHeaderTest, compose_putsTheTypeFirst)
{
    EXPECT_EQ(composeMessageHeader(tree(L"a", L"b"), -2), "<root><DataType>-2</DataType><a>b</a></root>");
}

TEST(MessageHeaderTest, compose_keepsATypeOfTheCallers)
{
    EXPECT_EQ(composeMessageHeader(tree(L"DataType", L"5"), 0),
              "<root><DataType>0</DataType><DataType>5</DataType></root>");
}

TEST(MessageHeaderTest, withBodyMetadata_addsBehindTheChildren)
{
    XmlString full = withBodyMetadata(tree(L"a", L"b"), {std::int64_t(1) << 40, 1});
    addCompressedSize(full, 5);
    EXPECT_EQ(full.toUtf8(), treeText("<a>b</a><FileSize>1099511627776</FileSize><Compressed>1</Compressed>"
                                      "<CompressedSize>5</CompressedSize>"));
}

TEST(MessageHeaderTest, withBodyMetadata_replacesWhatIsThere)
{
    XmlString old = withBodyMetadata(tree(L"FileSize", L"1"), {7, 1});
    addCompressedSize(old, 5);
    old.addChild(L"a", String(L"b"));
    old.addChild(L"DataType", String(L"1"));
    EXPECT_EQ(withBodyMetadata(old, {8, 0}).toUtf8(),
              treeText("<a>b</a><DataType>1</DataType><FileSize>8</FileSize><Compressed>0</Compressed>"));
}

TEST(MessageHeaderTest, addCompressedSize_cutsTo32Bits)
{
    XmlString header;
    addCompressedSize(header, (std::int64_t(1) << 32) + 3);
    EXPECT_EQ(header.getChild(L"CompressedSize"), String(L"3"));
    XmlString large;
    addCompressedSize(large, 4'000'000'000);
    EXPECT_EQ(parseCompressedSize(large), 4'000'000'000);
}

} // namespace
} // namespace Nolvex::Wx::Legacy::Detail
