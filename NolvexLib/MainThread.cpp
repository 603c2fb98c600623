// SPDX-License-Identifier: MIT
#include "NolvexLib/MainThread.h"

#include <atomic>
#include <thread>

namespace Nolvex {

namespace {

// The default value is the id of no thread.
std::atomic<std::thread::id> mainThread;

} // namespace

bool isMainThread()
{
    return mainThread.load() == std::this_thread::get_id();
}

void Detail::claimMainThread()
{
    mainThread = std::this_thread::get_id();
}

} // namespace Nolvex
