// SPDX-License-Identifier: MIT
#include "NolvexLib/WaitingCalls.h"

#include <exception>
#include <mutex>
#include <utility>

namespace Nolvex {

struct WaitingCalls::Call
{
    const Function<void()>& function;
    enum class State
    {
        WAITING,
        SERVED,
        RELEASED
    } state = State::WAITING;
    std::exception_ptr failure;
};

void WaitingCalls::open(Function<void()> wakeUp)
{
    const std::lock_guard lock(m_mutex);
    m_wakeUp = std::move(wakeUp);
}

void WaitingCalls::close()
{
    const std::lock_guard lock(m_mutex);
    m_wakeUp = {};
    for (Call* call : m_waiting)
        call->state = Call::State::RELEASED;
    m_waiting.clear();
    m_changed.notify_all();
}

bool WaitingCalls::call(const Function<void()>& function)
{
    Call call{function, Call::State::WAITING, nullptr};
    std::unique_lock lock(m_mutex);
    if (!m_wakeUp)
        return false;
    // The lock is held, so the main thread cannot close the queue, and then stop, before it is woken.
    m_wakeUp();
    m_waiting.push_back(&call);
    m_changed.wait(lock, [&] { return call.state != Call::State::WAITING; });
    if (call.failure)
        std::rethrow_exception(call.failure);
    return call.state == Call::State::SERVED;
}

void WaitingCalls::serveNext()
{
    std::unique_lock lock(m_mutex);
    if (m_waiting.empty() || m_serving)
        return;
    Call& call = *m_waiting.front();
    m_waiting.pop_front();
    m_serving = true;
    lock.unlock();
    std::exception_ptr failure;
    try {
        call.function();
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    m_serving = false;
    call.failure = failure;
    call.state = Call::State::SERVED;
    m_changed.notify_all();
    // The main thread may have been woken for these calls while it was serving this one.
    if (!m_waiting.empty() && m_wakeUp)
        m_wakeUp();
}

} // namespace Nolvex
