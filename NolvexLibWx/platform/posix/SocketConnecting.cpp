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

// A thread that is started meanwhile gets no signals.
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

// wxWidgets connects a socket with wxSOCKET_BLOCK inside the system, which gives up after minutes only and
// takes a signal for a failure. So another thread, which gets no signals, connects, and the caller waits for
// it.
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
        // The connect may be just about to begin, so it is cut again and again.
        do
            cut();
        while (!m_end.wait_for(lock, std::chrono::milliseconds(10), isOver));
        return false;
    }

private:
    void run()
    {
        const bool isConnected = m_client.Connect(m_address, true);
        // Under the lock to the end: the condition does not outlive the wait.
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
