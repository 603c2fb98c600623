// SPDX-License-Identifier: MIT
#include "support/SystemLimits.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <thread>

namespace Nolvex::Tests {

namespace {

constexpr int FIRST_SCARCE = 1024;

// Counts the signals that this thread has handled. A signal handler may do little more than count.
thread_local volatile sig_atomic_t handledSignals = 0;

void countSignal(int /*signal*/)
{
    handledSignals = handledSignals + 1;
}

} // namespace

ScarceDescriptors::ScarceDescriptors()
{
    rlimit limit = {};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    for (int next = 0; next >= 0 && next < FIRST_SCARCE;) {
        next = dup(STDIN_FILENO);
        if (next >= 0)
            m_descriptors.push_back(next);
        m_effective = next >= FIRST_SCARCE;
    }
}

ScarceDescriptors::~ScarceDescriptors()
{
    for (const int descriptor : m_descriptors)
        close(descriptor);
}

ScarceMemory::ScarceMemory()
{
#ifndef NOLVEX_SANITIZED
    constexpr rlim_t LEFT = 30'000'000;
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit limit = {};
    getrlimit(RLIMIT_AS, &limit);
    m_previous = limit.rlim_cur;
    limit.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + LEFT;
    m_effective = pages != 0 && setrlimit(RLIMIT_AS, &limit) == 0;
#endif
}

ScarceMemory::~ScarceMemory()
{
    if (!m_effective)
        return;
    rlimit limit = {};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = m_previous;
    setrlimit(RLIMIT_AS, &limit);
}

std::size_t inheritableSockets()
{
    std::size_t count = 0;
    for (int descriptor = 0; descriptor < FIRST_SCARCE; ++descriptor) {
        struct stat status = {};
        const bool isSocket = fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode);
        if (isSocket && (fcntl(descriptor, F_GETFD) & FD_CLOEXEC) == 0)
            ++count;
    }
    return count;
}

int whileInterrupted(const std::function<void()>& function)
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = countSignal; // without SA_RESTART: calls of the system return early
    sigaction(SIGUSR1, &action, &previous);
    std::atomic<bool> isOver = false;
    std::thread interrupter([&isOver, target = pthread_self()] {
        while (!isOver) {
            pthread_kill(target, SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(3));
        }
    });
    handledSignals = 0;
    function();
    const int handled = handledSignals;
    isOver = true;
    interrupter.join();
    sigaction(SIGUSR1, &previous, nullptr);
    return handled;
}

int affordableRounds(int rounds)
{
    return rounds;
}

Io::Path fileOnAFullDisk()
{
    return Io::Path(L"/dev/full");
}

Io::Path unwritableFile(const Io::Path& /*folder*/)
{
    // Permissions do not stop root, but the kernel lets no user create files in /proc.
    return Io::Path(L"/proc/file");
}

Io::Path fileShorterThanItsSize()
{
    return Io::Path(L"/sys/class/net/lo/mtu");
}

Io::Path fileLongerThanItsSize()
{
    return Io::Path(L"/proc/version");
}

} // namespace Nolvex::Tests
