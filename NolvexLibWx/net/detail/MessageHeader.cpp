// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/MessageHeader.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLib/SimpleTextSerializer.h"

#include <algorithm>
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

// The texts of all children of the root with that name. XmlString gives the first of them only, so its UTF-8
// form is looked through, which has neither attributes nor anything between elements.
Array<String> textsOf(const XmlString& tree, const String& key)
{
    const std::string text = tree.toUtf8();
    std::string start = "<";
    start.append(key.toUtf8()).append(">");
    Array<String> texts;
    int depth = 0;
    for (std::size_t at = 0; at != std::string::npos; at = text.find('<', at + 1)) {
        const bool isEnd = text[at + 1] == '/';
        depth += isEnd ? -1 : 1;
        if (isEnd || depth != 2 || text.compare(at, start.size(), start) != 0)
            continue;
        const std::size_t begin = at + start.size();
        texts.push_back(
            String::fromUtf8(std::string_view(text).substr(begin, text.find('<', begin) - begin)));
    }
    return texts;
}

// The number that all children with that name hold. A peer that passes on a header which it received may send
// the metadata twice.
template<TextInteger T>
Optional<T> agreedNumber(const XmlString& tree, StringView key)
{
    const Optional<T> first = firstNumber<T>(tree, key);
    if (!first || tree.countChildren(key) == 1)
        return first;
    const Array<String> texts = textsOf(tree, String(key));
    const bool isAgreed = std::all_of(texts.begin(), texts.end(), [&](const String& text) {
        return SimpleTextDeserializer::parse<T>(text) == first;
    });
    return isAgreed ? first : Optional<T>();
}

Optional<std::int64_t> agreedSize(const XmlString& tree, StringView key)
{
    const auto size = agreedNumber<std::int64_t>(tree, key);
    return size && *size >= 0 ? size : Optional<std::int64_t>();
}

Optional<XmlString> parseTree(std::string_view bytes)
{
    auto tree = XmlString::fromUtf8(bytes);
    // A header whose UTF-8 is broken may still be a tree whose texts hold replacement characters.
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
    const auto size = agreedSize(tree, FILE_SIZE);
    const auto compression = agreedNumber<std::int32_t>(tree, COMPRESSED);
    if (!size || !compression)
        return {};
    return BodyMetadata{*size, *compression};
}

Optional<std::int64_t> Detail::parseCompressedSize(const XmlString& tree)
{
    return agreedSize(tree, COMPRESSED_SIZE);
}

std::string Detail::composeMessageHeader(const XmlString& header, std::int32_t type)
{
    // The tree may be large, and every message pays for this: the text is changed rather than a copy of the
    // tree.
    constexpr std::string_view ROOT_START = "<root>";
    constexpr std::string_view TYPE_START = "<DataType>";
    constexpr std::string_view TYPE_END = "</DataType>";
    std::string text = header.toUtf8();
    const std::string number = std::to_string(type);
    text.insert(ROOT_START.size(), TYPE_START.size() + number.size() + TYPE_END.size(), ' ');
    char* target = text.data() + ROOT_START.size();
    for (const std::string_view part : {TYPE_START, std::string_view(number), TYPE_END})
        target = std::copy(part.begin(), part.end(), target);
    return text;
}

XmlString Detail::withBodyMetadata(const XmlString& header, const BodyMetadata& metadata)
{
    XmlString tree = header;
    // The metadata of a message that is passed on may not be true of this body.
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
