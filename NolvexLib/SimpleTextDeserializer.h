// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"
#include "NolvexLib/TextInteger.h"
#include "NolvexLib/VariableNames.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace Nolvex {

/// Takes the integers one after the other from a text SimpleTextSerializer wrote.
///
/// A value is ASCII digits, for signed types with one '-' allowed before them, and nothing else: no '+', no
/// space, no other base. Zeros may lead. What lies outside the type's range is no value. After the first
/// value that cannot be read all further reads fail as well.
class NOLVEXLIB_EXPORT SimpleTextDeserializer
{
public:
    /// Separator and names as the text was written with. An empty separator separates nothing: the whole text
    /// is one value.
    SimpleTextDeserializer(String text, String separator, VariableNames names);

    /// The value a text holds alone, without name and separator.
    template<TextInteger T>
    [[nodiscard]] static Optional<T> parse(StringView text)
    {
        constexpr T MIN = std::numeric_limits<T>::min();
        constexpr T MAX = std::numeric_limits<T>::max();
        if constexpr (std::is_signed_v<T>)
            return narrowed<T>(parseSigned(text, MIN, MAX));
        else
            return narrowed<T>(parseUnsigned(text, MAX));
    }

    /// The next value, whatever its name is; none when there is none left or it is malformed.
    template<TextInteger T>
    [[nodiscard]] Optional<T> read()
    {
        return checked(parse<T>(takeValue(nullptr)));
    }

    /// The next value; with VariableNames::WRITE its name must be this one. With OMIT the name is not looked
    /// at.
    template<TextInteger T>
    [[nodiscard]] Optional<T> read(StringView name)
    {
        return checked(parse<T>(takeValue(&name)));
    }

    /// True when every value was read and none failed.
    [[nodiscard]] bool isAtEnd() const { return m_next == String::NPOS && !m_hasFailed; }

private:
    static Optional<std::int64_t> parseSigned(StringView text, std::int64_t min, std::int64_t max);
    static Optional<std::uint64_t> parseUnsigned(StringView text, std::uint64_t max);

    template<class T, class Wide>
    static Optional<T> narrowed(Optional<Wide> value)
    {
        return value ? Optional<T>(static_cast<T>(*value)) : Optional<T>();
    }

    template<class T>
    Optional<T> checked(Optional<T> value)
    {
        m_hasFailed = m_hasFailed || !value;
        return value;
    }

    // Moves on; empty, which is no value, when there is none left or the name is wrong or missing.
    StringView takeValue(const StringView* name);

    String m_text;
    String m_separator;
    VariableNames m_names;
    std::size_t m_next; // position of the value to read next, NPOS after the last
    bool m_hasFailed = false;
};

} // namespace Nolvex
