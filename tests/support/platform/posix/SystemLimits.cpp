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
#include <thread>

namespace Nolvex::Tests {

namespace {

constexpr int FIRST_SCARCE = 1024;

void ignore(int /*signal*/) {}

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
        m_isEffective = next >= FIRST_SCARCE;
    }
}

ScarceDescriptors::~ScarceDescriptors()
{
    for (const int descriptor : m_descriptors)
        close(descriptor);
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

void whileInterrupted(const std::function<void()>& function)
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = ignore; // without SA_RESTART: calls of the system return early
    sigaction(SIGUSR1, &action, &previous);
    std::atomic<bool> isOver = false;
    std::thread interrupter([&isOver, target = pthread_self()] {
        while (!isOver) {
            pthread_kill(target, SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(3));
        }
    });
    function();
    isOver = true;
    interrupter.join();
    sigaction(SIGUSR1, &previous, nullptr);
}

int affordableRounds(int rounds)
{
    return rounds;
}

Io::Path fileOnAFullDisk()
{
    return Io::Path(L"/dev/full");
}

} // namespace Nolvex::Tests
