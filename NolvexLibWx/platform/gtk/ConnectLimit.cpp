// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ConnectLimit.h"

#include <pthread.h>
#include <signal.h>
#include <sys/socket.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace Nolvex::Platform {

namespace {

// A signal would end the connect as a failure.
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

} // namespace

// A socket with wxSOCKET_BLOCK connects inside the system, which has a time limit of its own: minutes. What
// wakes it from there is another thread that shuts the descriptor down.
class ConnectLimit::Watch : private Noncopyable
{
public:
    Watch(const wxSocketBase& socket, std::chrono::milliseconds time)
        : m_socket(socket), m_end(std::chrono::steady_clock::now() + time), m_thread([this] { run(); })
    {}

    ~Watch() { stop(); }

    bool stop()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_over.notify_one();
        if (m_thread.joinable())
            m_thread.join();
        return m_hasStruck;
    }

private:
    void run()
    {
        std::unique_lock lock(m_mutex);
        const auto isOver = [this] { return m_isOver; };
        if (m_over.wait_until(lock, m_end, isOver))
            return;
        m_hasStruck = true;
        // Again and again: the connect may be about to begin.
        do
            cut();
        while (!m_over.wait_for(lock, std::chrono::milliseconds(10), isOver));
    }

    void cut() const
    {
        if (m_socket.IsOk())
            shutdown(m_socket.GetSocket(), SHUT_RDWR);
    }

    const wxSocketBase& m_socket;
    std::chrono::steady_clock::time_point m_end;
    BlockedSignals m_blockedSignals; // before the thread, which inherits it
    std::mutex m_mutex;
    std::condition_variable m_over;
    bool m_isOver = false;
    bool m_hasStruck = false;
    std::thread m_thread;
};

ConnectLimit::ConnectLimit(const wxSocketBase& socket, std::chrono::milliseconds time)
    : m_watch(std::make_unique<Watch>(socket, time))
{}

ConnectLimit::~ConnectLimit() = default;

bool ConnectLimit::hasStruck()
{
    return m_watch->stop();
}

} // namespace Nolvex::Platform
