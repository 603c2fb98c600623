// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <thread>

namespace Nolvex::Tests {

/// Waits for what another thread brings about. Returns false if that does not happen for a long time.
template<class Condition>
bool waitUntil(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    return condition();
}

} // namespace Nolvex::Tests
