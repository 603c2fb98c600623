// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/MessageHeader.h"

#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLib/SimpleTextSerializer.h"

#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

constexpr wchar_t DATA_TYPE[] = L"DataType";
constexpr wchar_t FILE_SIZE[] = L"FileSize";
constexpr wchar_t COMPRESSED[] = L"Compressed";
constexpr wchar_t COMPRESSED_SIZE[] = L"CompressedSize";

template<TextInteger T>
String textOf(T number)
{
    SimpleTextSerializer serializer(L" ", VariableNames::OMIT);
    serializer.write(number);
    return serializer.text();
}

template<TextInteger T>
Optional<T> firstNumber(const XmlString& tree, StringView key)
{
    const Optional<String> text = tree.getChild(key);
    return text ? SimpleTextDeserializer::parse<T>(*text) : Optional<T>();
}

template<TextInteger T>
Optional<T> onlyNumber(const XmlString& tree, StringView key)
{
    return tree.countChildren(key) == 1 ? firstNumber<T>(tree, key) : Optional<T>();
}

Optional<std::int64_t> onlySize(const XmlString& tree, StringView key)
{
    const auto size = onlyNumber<std::int64_t>(tree, key);
    return size && *size >= 0 ? size : Optional<std::int64_t>();
}

Optional<XmlString> parseTree(std::string_view bytes)
{
    auto tree = XmlString::fromUtf8(bytes);
    // A header whose UTF-8 is broken may still be a tree, with replacement characters in its texts.
    if (!tree)
        tree = XmlString::fromString(String::fromUtf8(bytes));
    return tree ? Optional<XmlString>(std::move(*tree)) : Optional<XmlString>();
}

} // namespace

Optional<Detail::MessageHeader> Detail::parseMessageHeader(std::string_view bytes)
{
    Optional<XmlString> tree = parseTree(bytes);
    if (!tree)
        return {};
    const auto type = firstNumber<std::int32_t>(*tree, DATA_TYPE);
    if (!type)
        return {};
    return MessageHeader{*std::move(tree), *type};
}

Optional<Detail::BodyMetadata> Detail::parseBodyMetadata(const XmlString& tree)
{
    const auto size = onlySize(tree, FILE_SIZE);
    const auto compression = onlyNumber<std::int32_t>(tree, COMPRESSED);
    if (!size || !compression)
        return {};
    return BodyMetadata{*size, *compression};
}

Optional<std::int64_t> Detail::parseCompressedSize(const XmlString& tree)
{
    return onlySize(tree, COMPRESSED_SIZE);
}

std::string Detail::composeMessageHeader(const XmlString& header, std::int32_t type)
{
    // Every message pays for this: the tree, which may be large, is not copied to get another first child.
    constexpr std::string_view ROOT_START = "<root>";
    std::string text = header.toUtf8();
    text.insert(ROOT_START.size(), "<DataType>" + textOf(type).toUtf8() + "</DataType>");
    return text;
}

XmlString Detail::withBodyMetadata(const XmlString& header, const BodyMetadata& metadata)
{
    XmlString tree = header;
    // Those of a message that is passed on are no longer true, and receivers refuse what is there twice.
    for (const wchar_t* key : {FILE_SIZE, COMPRESSED, COMPRESSED_SIZE})
        tree.removeChildren(key);
    tree.addChild(FILE_SIZE, textOf(metadata.size));
    tree.addChild(COMPRESSED, textOf(metadata.compression));
    return tree;
}

void Detail::addCompressedSize(XmlString& header, std::int64_t size)
{
    header.addChild(COMPRESSED_SIZE, textOf(static_cast<std::uint32_t>(size)));
}

} // namespace Nolvex::Wx::Legacy
