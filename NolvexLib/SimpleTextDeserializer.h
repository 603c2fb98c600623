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

/// Reads integers one after the other from a text that SimpleTextSerializer has written.
///
/// A value consists of ASCII digits. A value of a signed type may have a '-' before them. Leading zeros are
/// accepted; a '+', spaces and other bases are not, nor are values outside the range of the type. After the
/// first value that cannot be read all further reads fail as well.
class NOLVEXLIB_EXPORT SimpleTextDeserializer
{
public:
    /// `separator` and `names` must be those with which the text was written. With an empty separator the
    /// whole text is one value.
    SimpleTextDeserializer(String text, String separator, VariableNames names);

    /// The value of a text that holds one value, without name and separator.
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

    /// Reads the next value, whatever its name is. Returns nullopt if no value is left or the value is
    /// malformed.
    template<TextInteger T>
    [[nodiscard]] Optional<T> read()
    {
        return checked(parse<T>(takeValue(nullptr)));
    }

    /// Reads the next value. With VariableNames::WRITE the value must have this name; with OMIT `name` is
    /// ignored.
    template<TextInteger T>
    [[nodiscard]] Optional<T> read(StringView name)
    {
        return checked(parse<T>(takeValue(&name)));
    }

    /// True if every value has been read and no read has failed.
    [[nodiscard]] bool isAtEnd() const { return m_next == String::NPOS && !m_failed; }

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
        m_failed = m_failed || !value;
        return value;
    }

    // Takes the next part and returns its value. The result is empty, which is no valid value, if no part is
    // left or if the name is wrong or missing.
    StringView takeValue(const StringView* name);

    String m_text;
    String m_separator;
    VariableNames m_names;
    std::size_t m_next; // position of the next part, or NPOS after the last one
    bool m_failed = false;
};

} // namespace Nolvex
