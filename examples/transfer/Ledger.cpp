// SPDX-License-Identifier: MIT
#include "examples/transfer/Ledger.h"

#include <cstdio>
#include <string>

using Nolvex::String;

namespace {

// Control characters from a sender must not reach the terminal.
std::string printable(const String& text)
{
    std::wstring result;
    for (const wchar_t unit : text.wstr()) {
        const bool isControl = unit < L' ' || (unit >= 0x7F && unit < 0xA0);
        result += isControl ? L'?' : unit;
    }
    return String(result).toUtf8();
}

} // namespace

void Ledger::enterReceived(const char* kind, const String& what)
{
    const std::lock_guard lock(m_mutex);
    ++m_received;
    std::printf("%s %s\n", kind, printable(what).c_str());
    std::fflush(stdout);
}

void Ledger::enterRefused(const String& reason)
{
    const std::lock_guard lock(m_mutex);
    ++m_refused;
    std::fprintf(stderr, "%s\n", printable(reason).c_str());
}

void Ledger::printSummary() const
{
    const std::lock_guard lock(m_mutex);
    std::printf("received %d, refused %d\n", m_received, m_refused);
    std::fflush(stdout);
}

bool Ledger::hasRefused() const
{
    const std::lock_guard lock(m_mutex);
    return m_refused > 0;
}
