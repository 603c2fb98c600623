// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <mutex>

/// What the receiver prints of all connections, a line each, and counts. Any thread may call any function.
class Ledger
{
public:
    /// Something was received: its kind and its name or text.
    void enterReceived(const char* kind, const Nolvex::String& what);

    /// Something was refused or broke off.
    void enterRefused(const Nolvex::String& reason);

    /// Prints how much was received and how much was not.
    void printSummary() const;

    bool hasRefused() const;

private:
    mutable std::mutex m_mutex;
    int m_received = 0;
    int m_refused = 0;
};
