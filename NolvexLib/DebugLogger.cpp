// SPDX-License-Identifier: MIT
#include "NolvexLib/DebugLogger.h"

#include "NolvexLib/RecursiveMutex.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <exception>
#include <mutex>

namespace Nolvex {

namespace {

struct SinkState
{
    // Recursive, because a sink may log or set another sink.
    RecursiveMutex mutex;
    DebugLogger::Sink sink;
    bool isBusy = false;
};

SinkState& sinkState()
{
    // Never destroyed: objects that are destroyed at the end of the program may still log.
    static SinkState& state = *new SinkState;
    return state;
}

const char* orEmpty(const char* text)
{
    return text != nullptr ? text : "";
}

void writeToStandardError(const DebugLogger::Record& record)
{
    const std::string line = DebugLogger::format(record) + '\n';
    // A single call writes the whole line, so that lines of other threads cannot get into it.
    std::fwrite(line.data(), 1, line.size(), stderr);
}

// Marks the state as busy while a sink runs.
class BusyMark : private Noncopyable
{
public:
    explicit BusyMark(bool& isBusy) : m_busy(isBusy) { m_busy = true; }

    ~BusyMark() { m_busy = false; }

private:
    bool& m_busy;
};

void log(const DebugLogger::Record& record)
{
    SinkState& state = sinkState();
    const std::lock_guard lock(state.mutex);
    if (!state.sink || state.isBusy)
        return writeToStandardError(record);
    const BusyMark mark(state.isBusy);
    state.sink(record);
}

template<class Number>
void appendNumber(std::string& text, Number number)
{
    std::array<char, 64> digits;
    const std::to_chars_result result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), result.ptr);
}

} // namespace

DebugLogger::DebugLogger(const char* sourceFile, int line, const char* function,
                         const char* category) noexcept
    : m_record{orEmpty(sourceFile), line, orEmpty(function), orEmpty(category), {}}
{}

DebugLogger::~DebugLogger()
{
    try {
        log(m_record);
    } catch (const std::exception&) {
        // A lost message is no reason to fail.
    }
}

DebugLogger& DebugLogger::operator<<(std::string_view text)
{
    m_record.message += text;
    return *this;
}

DebugLogger& DebugLogger::operator<<(const char* text)
{
    return *this << std::string_view(text != nullptr ? text : "(null)");
}

DebugLogger& DebugLogger::operator<<(StringView text)
{
    return *this << std::string_view(text.toUtf8());
}

DebugLogger& DebugLogger::operator<<(char character)
{
    return *this << std::string_view(&character, 1);
}

DebugLogger& DebugLogger::operator<<(wchar_t character)
{
    return *this << StringView(std::wstring_view(&character, 1));
}

DebugLogger& DebugLogger::operator<<(float value)
{
    appendNumber(m_record.message, value);
    return *this;
}

DebugLogger& DebugLogger::operator<<(double value)
{
    appendNumber(m_record.message, value);
    return *this;
}

DebugLogger& DebugLogger::appendSigned(std::int64_t value)
{
    appendNumber(m_record.message, value);
    return *this;
}

DebugLogger& DebugLogger::appendUnsigned(std::uint64_t value)
{
    appendNumber(m_record.message, value);
    return *this;
}

void DebugLogger::setSink(Sink sink)
{
    SinkState& state = sinkState();
    {
        const std::lock_guard lock(state.mutex);
        std::swap(state.sink, sink);
    }
    // The former sink is now in `sink` and is destroyed after the lock has been released.
}

std::string DebugLogger::format(const Record& record)
{
    std::string line = record.sourceFile;
    line += ':';
    appendNumber(line, record.line);
    line.append(": ").append(record.category).append(": ").append(record.function).append(": ");
    line += record.message;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    return line;
}

} // namespace Nolvex
