// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Export.h"

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace Nolvex {

/// What `explode` does with empty parts.
enum class ExplodeMode
{
    SKIP_EMPTY = 0,
    KEEP_EMPTY = 1,
};

/// A view of a wide text, which the caller owns and which must outlive the view. The text need not end in a
/// zero.
///
/// Positions and lengths count code units, which are UTF-32 on Linux and UTF-16 on Windows.
class StringView
{
    // The functions are exported one by one. If the class were exported, MinGW would look for NPOS in the
    // DLL.
public:
    static constexpr std::size_t NPOS = std::wstring_view::npos;

    constexpr StringView() = default;

    constexpr StringView(const wchar_t* text) // NOLINT(google-explicit-constructor): literals are views
        : m_text(text == nullptr ? std::wstring_view() : std::wstring_view(text))
    {}

    constexpr StringView(std::wstring_view text) // NOLINT(google-explicit-constructor)
        : m_text(text)
    {}

    StringView(const std::wstring& text) // NOLINT(google-explicit-constructor)
        : m_text(text)
    {}

    friend constexpr bool operator==(StringView a, StringView b) { return a.m_text == b.m_text; }

    friend constexpr std::strong_ordering operator<=>(StringView a, StringView b)
    {
        return a.m_text <=> b.m_text;
    }

    constexpr std::wstring_view view() const { return m_text; }

    constexpr std::size_t length() const { return m_text.size(); }

    constexpr bool isEmpty() const { return m_text.empty(); }

    constexpr auto begin() const { return m_text.begin(); }

    constexpr auto end() const { return m_text.end(); }

    /// The unit at `index`, which must be below `length()`.
    constexpr wchar_t operator[](std::size_t index) const { return m_text[index]; }

    /// The position of the first occurrence at or after `from`, or NPOS if there is none.
    constexpr std::size_t find(StringView text, std::size_t from = 0) const
    {
        return m_text.find(text.m_text, from);
    }

    /// At most `length` units from `start` on. Positions beyond the end of the text are no error.
    constexpr StringView getSubstr(std::size_t start, std::size_t length = NPOS) const
    {
        return start >= m_text.size() ? StringView() : StringView(m_text.substr(start, length));
    }

    /// Returns the parts between the separators. An empty separator does not split. An empty text has one
    /// empty part, which SKIP_EMPTY leaves out as it does others.
    NOLVEXLIB_EXPORT Array<StringView> explode(StringView separator, ExplodeMode mode) const;

    /// The text as UTF-8. A unit that is no character (a lone surrogate) becomes U+FFFD.
    NOLVEXLIB_EXPORT std::string toUtf8() const;

private:
    std::wstring_view m_text;
};

} // namespace Nolvex
