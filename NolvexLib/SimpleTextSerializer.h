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

/// Writes integers as a text with a separator between them: "5,-3", or with names "x=5,y=-3". The numbers are
/// decimal, without leading zeros, and the same in every locale. SimpleTextDeserializer reads the text.
///
/// If the separator is empty or consists of characters that names and numbers have too, the values cannot be
/// told apart again. Such a text should hold a single value.
class NOLVEXLIB_EXPORT SimpleTextSerializer
{
public:
    SimpleTextSerializer(String separator, VariableNames names);

    /// The text of a single value, without name and separator.
    template<TextInteger T>
    static String format(T value)
    {
        SimpleTextSerializer serializer(String(), VariableNames::OMIT);
        serializer.write(value);
        return serializer.m_text;
    }

    /// With VariableNames::WRITE a name that does not match [A-Za-z_][A-Za-z0-9_.-]* is a programming error
    /// (StopException). With OMIT the name is ignored.
    template<TextInteger T>
    void write(StringView name, T value)
    {
        if constexpr (std::is_signed_v<T>)
            writeSigned(name, value);
        else
            writeUnsigned(name, value);
    }

    /// Writes a value without a name, which is a programming error (StopException) with VariableNames::WRITE.
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
