// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/String.h"
#include "NolvexLib/StringView.h"
#include "NolvexLib/TextInteger.h"
#include "NolvexLib/VariableNames.h"

#include <cstdint>
#include <type_traits>

namespace Nolvex {

/// Writes integers into a text, joined by a separator: "5,-3", or with names "x=5,y=-3". Decimal, without
/// leading zeros, the same in every locale. SimpleTextDeserializer reads it.
///
/// A separator that is empty, or made of what values and names are made of, still joins, but nobody can tell
/// the values apart afterwards: such a text should hold one.
class NOLVEXLIB_EXPORT SimpleTextSerializer
{
public:
    SimpleTextSerializer(String separator, VariableNames names);

    /// The text of one value alone.
    template<TextInteger T>
    static String format(T value)
    {
        SimpleTextSerializer serializer(String(), VariableNames::OMIT);
        serializer.write(value);
        return serializer.m_text;
    }

    /// With VariableNames::WRITE the name must be [A-Za-z_][A-Za-z0-9_.-]*, otherwise it is a programming
    /// error (StopException); with OMIT it is not looked at.
    template<TextInteger T>
    void write(StringView name, T value)
    {
        if constexpr (std::is_signed_v<T>)
            writeSigned(name, value);
        else
            writeUnsigned(name, value);
    }

    /// For VariableNames::OMIT; with WRITE the missing name is a programming error (StopException).
    template<TextInteger T>
    void write(T value)
    {
        write(StringView(), value);
    }

    const String& text() const { return m_text; }

private:
    void writeSigned(StringView name, std::int64_t value);
    void writeUnsigned(StringView name, std::uint64_t value);
    void append(StringView name, StringView digits);

    String m_separator;
    VariableNames m_names;
    String m_text;
};

} // namespace Nolvex
