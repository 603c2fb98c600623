// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/StringView.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace Nolvex {

/// A wide text. Positions and lengths count code units, which are UTF-32 on Linux and UTF-16 on Windows.
class String
{
public:
    static constexpr std::size_t NPOS = StringView::NPOS;

    String() = default;

    String(const wchar_t* text) // NOLINT(google-explicit-constructor): literals are strings
        : String(StringView(text))
    {}

    String(std::wstring text) // NOLINT(google-explicit-constructor)
        : m_text(std::move(text))
    {}

    explicit String(StringView text) : m_text(text.view()) {}

    /// Converts UTF-8. Every broken sequence becomes one U+FFFD, so that any bytes give a text.
    NOLVEXLIB_EXPORT static String fromUtf8(std::string_view bytes);

    /// Converts UTF-8. Returns nullopt if a sequence is broken, overlong, a surrogate or beyond U+10FFFF.
    NOLVEXLIB_EXPORT static Optional<String> fromValidUtf8(std::string_view bytes);

    /// Converts ASCII. Every byte of 128 and above becomes U+FFFD.
    NOLVEXLIB_EXPORT static String fromAscii(std::string_view bytes);

    operator StringView() const // NOLINT(google-explicit-constructor): a string is seen through its view
    {
        return m_text;
    }

    friend bool operator==(const String& a, const String& b) { return a.m_text == b.m_text; }

    friend std::strong_ordering operator<=>(const String& a, const String& b)
    {
        return a.m_text <=> b.m_text;
    }

    friend bool operator==(const String& a, const wchar_t* b) { return StringView(a) == StringView(b); }

    String& operator+=(StringView text)
    {
        m_text += text.view();
        return *this;
    }

    friend String operator+(String a, StringView b) { return std::move(a += b); }

    friend String operator+(const wchar_t* a, const String& b) { return String(a) + StringView(b); }

    const wchar_t* c_str() const { return m_text.c_str(); }

    const std::wstring& wstr() const { return m_text; }

    std::size_t length() const { return m_text.size(); }

    bool isEmpty() const { return m_text.empty(); }

    /// The unit at `index`, which must be below `length()`.
    wchar_t operator[](std::size_t index) const { return m_text[index]; }

    /// The position of the first occurrence at or after `from`, or NPOS if there is none.
    std::size_t find(StringView text, std::size_t from = 0) const
    {
        return StringView(*this).find(text, from);
    }

    /// At most `length` units from `start` on. Positions beyond the end of the text are no error.
    String getSubstr(std::size_t start, std::size_t length = NPOS) const
    {
        return String(StringView(*this).getSubstr(start, length));
    }

    /// Replaces every occurrence of `what`, from left to right. The replacements are not searched again. An
    /// empty `what` does not occur.
    NOLVEXLIB_EXPORT String& replaceAll(StringView what, StringView with);

    /// Splits the text as StringView::explode does.
    NOLVEXLIB_EXPORT Array<String> explode(StringView separator, ExplodeMode mode) const;

    /// The text as UTF-8. A unit that is no character (a lone surrogate) becomes U+FFFD.
    std::string toUtf8() const { return StringView(*this).toUtf8(); }

private:
    std::wstring m_text;
};

} // namespace Nolvex

template<>
struct std::hash<Nolvex::String>
{
    std::size_t operator()(const Nolvex::String& text) const noexcept { return hash<wstring>()(text.wstr()); }
};
