// SPDX-License-Identifier: MIT
#include "apps/picker/HexColor.h"

#include "NolvexLibWx/ColourConversions.h"
#include "apps/program/HexDigits.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Picker {

namespace {

constexpr std::uint8_t OPAQUE_BYTE = 255;

std::wstring_view withoutSpaces(std::wstring_view text)
{
    constexpr std::wstring_view SPACES = L" \t\r\n";
    const std::size_t first = text.find_first_not_of(SPACES);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(SPACES) - first + 1);
}

// The library converts no alpha, so that the alpha is converted as if it were a grey.
std::uint8_t alphaByte(float alpha)
{
    return Wx::toRgbBytes(Wx::toWxColour(Rgb{alpha, alpha, alpha, 1.0f})).r;
}

Rgb toRgb(const RgbBytes& color, std::uint8_t alpha)
{
    Rgb converted = Wx::toRgb(Wx::toWxColour(color));
    converted.a = Wx::toRgb(Wx::toWxColour(RgbBytes{alpha, alpha, alpha})).r;
    return converted;
}

} // namespace

Optional<Rgb> parseHexColor(StringView text)
{
    std::wstring_view digits = withoutSpaces(text.view());
    if (digits.starts_with(L'#'))
        digits.remove_prefix(1);
    const bool isShort = digits.size() == 3;
    if (!isShort && digits.size() != 6 && digits.size() != 8)
        return {};
    std::array<std::uint8_t, 4> bytes{0, 0, 0, OPAQUE_BYTE};
    const std::size_t width = isShort ? 1 : 2;
    for (std::size_t i = 0; i < digits.size(); i += width) {
        const Optional<std::uint8_t> byte = Program::parseHexByte(digits.substr(i, width));
        if (!byte)
            return {};
        bytes[i / width] = *byte;
    }
    return toRgb({bytes[0], bytes[1], bytes[2]}, bytes[3]);
}

String hexColor(const Rgb& color)
{
    const RgbBytes bytes = Wx::toRgbBytes(Wx::toWxColour(color));
    const std::uint8_t alpha = alphaByte(color.a);
    std::wstring text = L"#";
    for (const std::uint8_t byte : {bytes.r, bytes.g, bytes.b})
        Program::appendHexByte(text, byte, Program::HexLetters::SMALL);
    if (alpha != OPAQUE_BYTE)
        Program::appendHexByte(text, alpha, Program::HexLetters::SMALL);
    return text;
}

} // namespace Nolvex::Picker
