// SPDX-License-Identifier: MIT
#include "apps/picker/HexColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace Nolvex::Picker {

namespace {

constexpr std::wstring_view DIGITS = L"0123456789abcdef";
constexpr std::wstring_view CAPITAL_DIGITS = L"0123456789ABCDEF";
constexpr int BASE = 16;
constexpr float MAX_BYTE = 255.0f;

Optional<int> digit(wchar_t character)
{
    for (const std::wstring_view digits : {DIGITS, CAPITAL_DIGITS}) {
        if (const std::size_t place = digits.find(character); place != std::wstring_view::npos)
            return static_cast<int>(place);
    }
    return {};
}

std::wstring_view withoutSpaces(std::wstring_view text)
{
    constexpr std::wstring_view SPACES = L" \t\r\n";
    const std::size_t first = text.find_first_not_of(SPACES);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(SPACES) - first + 1);
}

// NaN compares as false, so that NaN becomes 0.
int byteOf(float number)
{
    if (!(number > 0.0f))
        return 0;
    return static_cast<int>(std::lround(std::min(number, 1.0f) * MAX_BYTE));
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
    std::array<float, 4> numbers{0.0f, 0.0f, 0.0f, 1.0f};
    const std::size_t width = isShort ? 1 : 2;
    for (std::size_t i = 0; i < digits.size(); i += width) {
        const Optional<int> high = digit(digits[i]);
        const Optional<int> low = digit(digits[i + width - 1]);
        if (!high || !low)
            return {};
        numbers[i / width] = static_cast<float>(*high * BASE + *low) / MAX_BYTE;
    }
    return Rgb{numbers[0], numbers[1], numbers[2], numbers[3]};
}

String hexColor(const Rgb& color)
{
    std::wstring text = L"#";
    const auto append = [&text](int byte) {
        text += DIGITS[static_cast<std::size_t>(byte / BASE)];
        text += DIGITS[static_cast<std::size_t>(byte % BASE)];
    };
    for (const float number : {color.r, color.g, color.b})
        append(byteOf(number));
    if (byteOf(color.a) != static_cast<int>(MAX_BYTE))
        append(byteOf(color.a));
    return text;
}

} // namespace Nolvex::Picker
