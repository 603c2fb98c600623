// SPDX-License-Identifier: MIT
#include "examples/transfer/Interruption.h"

#include <csignal>

namespace {

// A signal handler may change no other kind of variable.
volatile std::sig_atomic_t g_signal = 0;

void note(int signal)
{
    // The next signal ends the program at once, though it may not have tidied up.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    g_signal = signal;
}

} // namespace

void Interruption::watch()
{
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

bool Interruption::isRequested()
{
    return g_signal != 0;
}

void Interruption::endProgram()
{
    if (!isRequested())
        return;
    const int signal = g_signal;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}
