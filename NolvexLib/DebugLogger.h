// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/StringView.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace Nolvex {

namespace Detail {

template<class T>
concept LoggedInteger = std::integral<T> && !std::same_as<T, bool>;

} // namespace Detail

/// One message for developers, put together with `<<` and logged when the logger goes:
/// `DebugLogger(__FILE__, __LINE__, __func__, "net") << "sent " << count << " bytes";`
///
/// Usable from every thread. Numbers look the same in every locale.
class NOLVEXLIB_EXPORT DebugLogger : private Noncopyable
{
public:
    /// What a sink gets. All texts are UTF-8 and live as long as the call.
    struct Record
    {
        const char* sourceFile;
        int line;
        const char* function;
        const char* category;
        std::string message;
    };

    using Sink = Function<void(const Record&)>;

    /// The texts must outlive the logger; null is an empty one.
    DebugLogger(const char* sourceFile, int line, const char* function, const char* category) noexcept;

    /// Logs. A sink's std::exception is swallowed, a StopException ends the program.
    ~DebugLogger();

    /// Takes UTF-8.
    DebugLogger& operator<<(std::string_view text);
    DebugLogger& operator<<(const char* text);
    DebugLogger& operator<<(StringView text);
    DebugLogger& operator<<(char character);
    DebugLogger& operator<<(wchar_t character);
    DebugLogger& operator<<(float value);
    DebugLogger& operator<<(double value);

    // Templates for what everything from pointers to characters would turn into unasked.
    template<std::same_as<bool> Bool>
    DebugLogger& operator<<(Bool value)
    {
        return *this << (value ? "true" : "false");
    }

    template<Detail::LoggedInteger Integer>
    DebugLogger& operator<<(Integer value)
    {
        if constexpr (std::is_signed_v<Integer>)
            return appendSigned(value);
        else
            return appendUnsigned(value);
    }

    /// Who gets the records from now on; an empty one stands for the standard error stream, which gets one
    /// line a record. Sinks are called one at a time, and after this returns the former one no more. What a
    /// sink logs itself goes to the standard error stream.
    static void setSink(Sink sink);

    /// The line of a record, without line break: "<file>:<line>: <category>: <function>: <message>". Control
    /// characters in the message, line breaks too, become spaces.
    static std::string format(const Record& record);

private:
    DebugLogger& appendSigned(std::int64_t value);
    DebugLogger& appendUnsigned(std::uint64_t value);

    Record m_record;
};

} // namespace Nolvex
