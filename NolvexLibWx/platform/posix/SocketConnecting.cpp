// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/SocketConnecting.h"

#include "NolvexLib/Noncopyable.h"

#include <pthread.h>
#include <signal.h>
#include <sys/socket.h>

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace Nolvex {

namespace {

using Clock = std::chrono::steady_clock;

// Blocks all signals for the current thread, so that a thread which is started meanwhile receives none.
class BlockedSignals : private Noncopyable
{
public:
    BlockedSignals()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_previous);
    }

    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &m_previous, nullptr); }

private:
    sigset_t m_previous;
};

// wxWidgets connects a socket with wxSOCKET_BLOCK by a system call that gives up only after minutes and fails
// when a signal arrives. Therefore another thread, which receives no signals, makes the call while the caller
// waits.
class Attempt : private Noncopyable
{
public:
    Attempt(wxSocketClient& client, const wxIPV4address& address) : m_client(client), m_address(address)
    {
        const BlockedSignals blockedSignals;
        m_thread = std::thread([this] { run(); });
    }

    ~Attempt() { m_thread.join(); }

    bool succeedsBefore(Clock::time_point end)
    {
        std::unique_lock lock(m_mutex);
        const auto isOver = [this] { return m_over; };
        if (m_end.wait_until(lock, end, isOver))
            return m_connected;
        // The thread may only be about to connect, so the socket is shut down again and again.
        do
            cut();
        while (!m_end.wait_for(lock, std::chrono::milliseconds(10), isOver));
        return false;
    }

private:
    void run()
    {
        const bool isConnected = m_client.Connect(m_address, true);
        // The lock is held to the end, because the waiting thread may destroy the condition variable
        // afterwards.
        const std::lock_guard lock(m_mutex);
        m_connected = isConnected;
        m_over = true;
        m_end.notify_one();
    }

    void cut() const
    {
        if (m_client.IsOk())
            shutdown(m_client.GetSocket(), SHUT_RDWR);
    }

    wxSocketClient& m_client;
    const wxIPV4address& m_address;
    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_connected = false;
    bool m_over = false;
    std::thread m_thread;
};

} // namespace

bool Platform::connectWithin(wxSocketClient& client, const wxIPV4address& address,
                             std::chrono::milliseconds time)
try {
    const Clock::time_point end = Clock::now() + time;
    return Attempt(client, address).succeedsBefore(end);

} catch (const std::system_error&) {
    // The system has no more threads.
    return false;
}

} // namespace Nolvex
