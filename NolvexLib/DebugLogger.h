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

/// One message for developers. It is put together with `<<` and logged by the destructor:
/// `DebugLogger(__FILE__, __LINE__, __func__, "net") << "sent " << count << " bytes";`
///
/// Every thread may log. Numbers look the same in every locale.
class NOLVEXLIB_EXPORT DebugLogger : private Noncopyable
{
public:
    /// The message as a sink receives it. All texts are UTF-8 and live until the sink returns.
    struct Record
    {
        const char* sourceFile;
        int line;
        const char* function;
        const char* category;
        std::string message;
    };

    using Sink = Function<void(const Record&)>;

    /// The texts must outlive the logger. Null stands for an empty text.
    DebugLogger(const char* sourceFile, int line, const char* function, const char* category) noexcept;

    /// Logs the message. An std::exception of the sink is swallowed; a StopException ends the program.
    ~DebugLogger();

    /// Appends UTF-8 text.
    DebugLogger& operator<<(std::string_view text);
    DebugLogger& operator<<(const char* text);
    DebugLogger& operator<<(StringView text);
    DebugLogger& operator<<(char character);
    DebugLogger& operator<<(wchar_t character);
    DebugLogger& operator<<(float value);
    DebugLogger& operator<<(double value);

    // Templates, because pointers and characters would convert to bool and to integers unasked.
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

    /// Sets the function that receives all further records. Without a sink each record is written to the
    /// standard error stream as one line. Only one thread at a time calls a sink, and the former sink is not
    /// called any more after this function has returned. Messages that a sink itself logs go to the standard
    /// error stream.
    static void setSink(Sink sink);

    /// Returns "<file>:<line>: <category>: <function>: <message>" without a line break. Control characters in
    /// the message, line breaks included, become spaces.
    static std::string format(const Record& record);

private:
    DebugLogger& appendSigned(std::int64_t value);
    DebugLogger& appendUnsigned(std::uint64_t value);

    Record m_record;
};

} // namespace Nolvex
