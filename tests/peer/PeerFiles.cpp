// SPDX-License-Identifier: MIT
#include "peer/PeerFiles.h"

#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileOutputStream.h"
#include "NolvexLib/Io/FileSize.h"

#include <array>
#include <bit>
#include <cstdio>
#include <utility>

namespace Nolvex::Tests {

std::string escaped(const String& text)
{
    const std::string bytes = text.toUtf8();
    std::string result;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[at++]);
        if (first >= ' ' && first <= '~' && first != '\\') {
            result += static_cast<char>(first);
            continue;
        }
        unsigned int character = first & (0xffU >> (std::countl_one(first) + 1));
        for (; at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xc0U) == 0x80; ++at)
            character = character << 6U | (static_cast<unsigned char>(bytes[at]) & 0x3fU);
        std::array<char, 16> code{};
        std::snprintf(code.data(), code.size(), "\\u{%X}", character);
        result += code.data();
    }
    return result;
}

Io::Path pathOf(const std::string& name)
{
    return Io::Path(String::fromUtf8(name));
}

ByteArray contentOf(const std::string& name)
{
    const Io::Path path = pathOf(name);
    ByteArray content(static_cast<std::size_t>(Io::fileSize(path).value_or(0)));
    Io::FileInputStream file(path);
    if (!file.readExactly(content.data(), static_cast<std::int64_t>(content.size())))
        throw Refusal(name + " cannot be read");
    return content;
}

std::string textIn(const std::string& name)
{
    const ByteArray content = contentOf(name);
    return {reinterpret_cast<const char*>(content.data()), content.size()};
}

XmlString treeIn(const std::string& name)
{
    auto tree = XmlString::fromUtf8(textIn(name));
    if (!tree)
        throw Refusal(name + ": " + tree.error().toUtf8());
    return std::move(*tree);
}

void store(const std::string& folder, const std::string& name, ArrayView<const std::byte> content)
{
    Io::FileOutputStream file(pathOf(folder) / pathOf(name), Io::Open::TRUNCATE);
    file.write(content.data(), static_cast<std::int64_t>(content.size()));
    file.close();
}

} // namespace Nolvex::Tests
