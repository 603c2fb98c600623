// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/Noncopyable.h"

#include <condition_variable>
#include <deque>

namespace Nolvex {

/// Calls that other threads have the main thread make, while they wait for the end of their call. Closed at
/// first. Calls are made one after another, in the order in which they were asked for.
class NOLVEXLIB_EXPORT WaitingCalls : private Noncopyable
{
public:
    /// Accepts calls from now on. `wakeUp` is called on the waiting threads, one at a time, and makes the
    /// main thread call `serveNext` once for each call.
    void open(Function<void()> wakeUp);

    /// Accepts no more calls, and releases the threads whose calls have not begun.
    void close();

    /// Returns when the main thread has called the function, and throws what the function has thrown. Returns
    /// false if the function was not called, because the queue was closed before. Must not be called on the
    /// main thread, which would wait for itself.
    bool call(const Function<void()>& function);

    /// Makes the next call. A call that is asked for while another is being made waits for its end, even if
    /// this function is called again meanwhile.
    void serveNext();

private:
    struct Call;

    Mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Call*> m_waiting; // the calls belong to the threads that wait
    Function<void()> m_wakeUp;   // empty while closed
    bool m_serving = false;
};

} // namespace Nolvex
