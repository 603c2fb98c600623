// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <mutex>

/// Prints and counts the results of all connections, a line for each. Any thread may call any function.
class Ledger
{
public:
    /// Records a reception: the kind of the message, and its name or text.
    void enterReceived(const char* kind, const Nolvex::String& what);

    /// Records a message that was refused or broke off.
    void enterRefused(const Nolvex::String& reason);

    /// Prints how many messages were received and how many were refused.
    void printSummary() const;

    bool hasRefused() const;

private:
    mutable std::mutex m_mutex;
    int m_received = 0;
    int m_refused = 0;
};
