// SPDX-License-Identifier: MIT
#include "examples/transfer/Interruption.h"

#include <csignal>

namespace {

// A signal handler may change no other kind of variable.
volatile std::sig_atomic_t g_signal = 0;

void note(int signal)
{
    // Windows removes the handler before each call, so that the handler has to be set again.
    std::signal(signal, note);
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
