// SPDX-License-Identifier: MIT
#include "NolvexLib/String.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace Nolvex {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

// The two widths of wchar_t: UTF-16 where it has 16 bits, UTF-32 elsewhere.
constexpr bool WIDE_IS_UTF16 = sizeof(wchar_t) == 2;

template<class Unit>
bool isAscii(Unit unit)
{
    return static_cast<std::make_unsigned_t<Unit>>(unit) < 0x80;
}

// Most texts are ASCII from the first to the last unit, which is much faster to copy than to convert.
template<class Units>
auto endOfAscii(const Units& units)
{
    return std::find_if_not(units.begin(), units.end(), isAscii<typename Units::value_type>);
}

std::wstring widen(std::string_view validUtf8)
{
    const auto rest = endOfAscii(validUtf8);
    std::wstring text;
    text.reserve(validUtf8.size());
    text.assign(validUtf8.begin(), rest);
    if constexpr (WIDE_IS_UTF16)
        utf8::unchecked::utf8to16(rest, validUtf8.end(), std::back_inserter(text));
    else
        utf8::unchecked::utf8to32(rest, validUtf8.end(), std::back_inserter(text));
    return text;
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Removes the first character from the text and returns it. A unit that is no character gives U+FFFD.
char32_t takeCharacter(std::wstring_view& text)
{
    const auto unit = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if (WIDE_IS_UTF16 && isHighSurrogate(unit) && !text.empty() &&
        isLowSurrogate(static_cast<char32_t>(text[0]))) {
        const auto low = static_cast<char32_t>(text.front());
        text.remove_prefix(1);
        return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    return isHighSurrogate(unit) || isLowSurrogate(unit) || unit > 0x10FFFF ? REPLACEMENT : unit;
}

} // namespace

String String::fromUtf8(std::string_view bytes)
{
    if (utf8::is_valid(endOfAscii(bytes), bytes.end()))
        return widen(bytes);
    std::string repaired;
    repaired.reserve(bytes.size());
    utf8::replace_invalid(bytes.begin(), bytes.end(), std::back_inserter(repaired), REPLACEMENT);
    return widen(repaired);
}

Optional<String> String::fromValidUtf8(std::string_view bytes)
{
    if (!utf8::is_valid(endOfAscii(bytes), bytes.end()))
        return {};
    return String(widen(bytes));
}

String String::fromAscii(std::string_view bytes)
{
    std::wstring text(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return static_cast<wchar_t>(value < 128 ? value : REPLACEMENT);
    });
    return text;
}

String& String::replaceAll(StringView what, StringView with)
{
    if (what.isEmpty())
        return *this;
    const StringView source(*this);
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t found = source.find(what); found != NPOS; found = source.find(what, done)) {
        result += source.getSubstr(done, found - done).view();
        result += with.view();
        done = found + what.length();
    }
    result += source.getSubstr(done).view();
    m_text = std::move(result);
    return *this;
}

Array<String> String::explode(StringView separator, ExplodeMode mode) const
{
    const Array<StringView> parts = StringView(*this).explode(separator, mode);
    Array<String> owned;
    owned.reserve(parts.size());
    std::transform(parts.begin(), parts.end(), std::back_inserter(owned),
                   [](StringView part) { return String(part); });
    return owned;
}

Array<StringView> StringView::explode(StringView separator, ExplodeMode mode) const
{
    Array<StringView> parts;
    const auto add = [&](StringView part) {
        if (mode == ExplodeMode::KEEP_EMPTY || !part.isEmpty())
            parts.push_back(part);
    };
    std::size_t start = 0;
    if (!separator.isEmpty()) {
        for (std::size_t found = find(separator); found != NPOS; found = find(separator, start)) {
            add(getSubstr(start, found - start));
            start = found + separator.length();
        }
    }
    add(getSubstr(start));
    return parts;
}

std::string StringView::toUtf8() const
{
    const auto beyondAscii = endOfAscii(m_text);
    std::string bytes(static_cast<std::size_t>(beyondAscii - m_text.begin()), '\0');
    std::transform(m_text.begin(), beyondAscii, bytes.begin(),
                   [](wchar_t unit) { return static_cast<char>(unit); });
    for (std::wstring_view rest(beyondAscii, m_text.end()); !rest.empty();)
        utf8::unchecked::append(takeCharacter(rest), std::back_inserter(bytes));
    return bytes;
}

} // namespace Nolvex
