// SPDX-License-Identifier: MIT
#include "apps/gallery/SkinFile.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/XmlString.h"
#include "apps/gallery/SkinFields.h"
#include "apps/program/HexDigits.h"
#include "apps/program/ReplacementFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <string>

namespace Nolvex::Gallery {

namespace {

const wchar_t* const ROOT = L"GuiSkin";
constexpr std::wstring_view SEPARATORS = L" ,\t\r\n";
constexpr std::size_t HEX_LENGTH = 6;
constexpr int MAX_BYTE = 255;

String hexOf(const RgbBytes& color)
{
    std::wstring text;
    for (const std::uint8_t byte : {color.r, color.g, color.b})
        Program::appendHexByte(text, byte, Program::HexLetters::CAPITAL);
    return text;
}

// Returns nullopt for anything but a number of one to three digits that is a byte.
Optional<std::uint8_t> decimalByte(std::wstring_view text)
{
    if (text.empty() || text.size() > 3)
        return {};
    int number = 0;
    for (const wchar_t character : text) {
        if (character < L'0' || character > L'9')
            return {};
        number = number * 10 + static_cast<int>(character - L'0');
    }
    return number <= MAX_BYTE ? Optional<std::uint8_t>(static_cast<std::uint8_t>(number)) : std::nullopt;
}

// Removes and returns the text up to the next separator, and the separators around it.
std::wstring_view takeWord(std::wstring_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(SEPARATORS), text.size()));
    const std::wstring_view word = text.substr(0, text.find_first_of(SEPARATORS));
    text.remove_prefix(word.size());
    text.remove_prefix(std::min(text.find_first_not_of(SEPARATORS), text.size()));
    return word;
}

Optional<RgbBytes> colorIn(std::wstring_view text)
{
    const bool isHex = text.size() == HEX_LENGTH && text.find_first_of(SEPARATORS) == std::wstring_view::npos;
    std::array<std::uint8_t, 3> bytes{};
    for (std::uint8_t& byte : bytes) {
        const std::wstring_view word = isHex ? text.substr(0, 2) : takeWord(text);
        if (isHex)
            text.remove_prefix(2);
        const Optional<std::uint8_t> read = isHex ? Program::parseHexByte(word) : decimalByte(word);
        if (!read)
            return {};
        byte = *read;
    }
    if (!text.empty())
        return {};
    return RgbBytes{bytes[0], bytes[1], bytes[2]};
}

Expected<RgbBytes, String> colorOf(const XmlString& skin, const wchar_t* name)
{
    const String quoted = L"\"" + String(name) + L"\"";
    const std::size_t count = skin.countChildren(name);
    if (count == 0)
        return Unexpected{L"The skin has no colour " + quoted + L"."};
    if (count > 1)
        return Unexpected{L"The skin has the colour " + quoted + L" more than once."};
    const Optional<String> text = skin.getChild(name);
    const Optional<RgbBytes> color = text ? colorIn(text->wstr()) : std::nullopt;
    if (!color) {
        return Unexpected{L"The colour " + quoted +
                          L" is neither six hexadecimal digits nor three numbers from 0 to 255."};
    }
    return *color;
}

} // namespace

std::string skinToXml(const Wx::GuiSkin& skin)
{
    XmlString colors;
    for (const SkinField& field : SKIN_FIELDS)
        colors.addChild(field.name, hexOf(skin.*field.color));
    XmlString root;
    root.addChild(ROOT, colors);
    return root.toUtf8();
}

Expected<Wx::GuiSkin, String> skinFromXml(std::string_view xml)
{
    const Expected<XmlString, String> root = XmlString::fromUtf8(xml);
    if (!root)
        return Unexpected{L"This is no XML of a skin. " + root.error()};
    const Optional<XmlString> colors = root->getTree(ROOT);
    if (!colors || root->childCount() != 1)
        return Unexpected{String(L"This is XML, but not that of one skin.")};
    Wx::GuiSkin skin;
    for (const SkinField& field : SKIN_FIELDS) {
        const Expected<RgbBytes, String> color = colorOf(*colors, field.name);
        if (!color)
            return Unexpected{color.error()};
        skin.*field.color = *color;
    }
    if (colors->childCount() != SKIN_FIELDS.size())
        return Unexpected{String(L"The skin has more than its nine colours.")};
    return skin;
}

Expected<Wx::GuiSkin, String> loadSkin(const Io::Path& file)
{
    const Optional<std::uint64_t> size = Io::fileSize(file);
    if (!size)
        return Unexpected{L"There is no file \"" + file.nativeStr() + L"\"."};
    if (*size > MAX_SKIN_FILE_SIZE)
        return Unexpected{L"The file \"" + file.nativeStr() + L"\" is too large for a skin."};
    std::string content(static_cast<std::size_t>(*size), '\0');
    try {
        Io::FileInputStream stream(file);
        if (!stream.readExactly(content.data(), static_cast<std::int64_t>(content.size())))
            return Unexpected{L"The file \"" + file.nativeStr() + L"\" became shorter while it was read."};
    } catch (const Exception& failure) {
        return Unexpected{String::fromUtf8(failure.what())};
    }
    return skinFromXml(content);
}

String saveSkin(const Wx::GuiSkin& skin, const Io::Path& file)
{
    const std::string content = skinToXml(skin);
    try {
        Program::ReplacementFile replacement(file);
        if (replacement.isOpen()) {
            replacement.stream().write(content.data(), static_cast<std::streamsize>(content.size()));
            if (replacement.commit())
                return {};
        }
    } catch (const std::exception&) { // such as a system without random numbers
        return L"The system does not let the file \"" + file.nativeStr() + L"\" be written.";
    }
    return L"The file \"" + file.nativeStr() + L"\" cannot be written.";
}

} // namespace Nolvex::Gallery
