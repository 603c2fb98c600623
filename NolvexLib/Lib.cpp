// SPDX-License-Identifier: MIT
#include "NolvexLib/Lib.h"

#include "NolvexLib/MainThread.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/StopException.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <utility>

namespace Nolvex {

namespace {

struct Event
{
    // The number of events posted before this one.
    std::uint64_t number;
    Function<void()> function;
};

struct LibState
{
    Mutex mutex;
    int startups = 0;
    std::uint64_t posted = 0;
    std::deque<Event> events;
    Function<void()> wakeUp;
};

LibState& libState()
{
    // Never destroyed: threads that outlive main() may still post.
    static LibState& state = *new LibState;
    return state;
}

// Returns the number of the next event, or nullopt if the library is not started.
Optional<std::uint64_t> nextNumber()
{
    const std::lock_guard lock(libState().mutex);
    if (libState().startups == 0)
        return {};
    return libState().posted;
}

// Appends the event and returns the function that wakes the event loop, or nullopt if the library is not
// started.
Optional<Function<void()>> enqueue(Function<void()> function)
{
    LibState& state = libState();
    const std::lock_guard lock(state.mutex);
    if (state.startups == 0)
        return {};
    state.events.push_back({state.posted, std::move(function)});
    ++state.posted;
    return state.wakeUp;
}

// Takes the first waiting event. Returns an empty function if no event has a number below `end`.
Function<void()> takeEventBefore(std::uint64_t end)
{
    LibState& state = libState();
    const std::lock_guard lock(state.mutex);
    if (state.events.empty() || state.events.front().number >= end)
        return {};
    Function<void()> function = std::move(state.events.front().function);
    state.events.pop_front();
    return function;
}

} // namespace

void Lib::startup()
{
    const std::lock_guard lock(libState().mutex);
    if (libState().startups++ == 0)
        Detail::claimMainThread();
}

void Lib::shutdown()
{
    std::deque<Event> dropped;
    LibState& state = libState();
    const std::lock_guard lock(state.mutex);
    if (state.startups == 0 || --state.startups > 0)
        return;
    // `dropped` is declared before the lock, so the events are destroyed after the lock has been released.
    dropped.swap(state.events);
}

bool Lib::postToMainThread(Function<void()> function)
{
    if (!function)
        Detail::throwStopException("Lib", __LINE__);
    const Optional<Function<void()>> wakeUp = enqueue(std::move(function));
    if (wakeUp && *wakeUp)
        (*wakeUp)();
    return wakeUp.has_value();
}

void Lib::processPendingEvents()
{
    const Optional<std::uint64_t> end = nextNumber();
    if (!end)
        return;
    if (!isMainThread())
        Detail::throwStopException("Lib", __LINE__);
    while (const Function<void()> function = takeEventBefore(*end))
        function();
}

void Lib::setWakeUp(Function<void()> wakeUp)
{
    // After the swap `wakeUp` holds the former function, which is destroyed after the lock has been released.
    const std::lock_guard lock(libState().mutex);
    std::swap(libState().wakeUp, wakeUp);
}

} // namespace Nolvex
