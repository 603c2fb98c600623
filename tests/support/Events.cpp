// SPDX-License-Identifier: MIT
#include "support/Events.h"

#include <wx/app.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace Nolvex {

bool Tests::pumpUntil(const std::function<bool()>& condition, int limitMilliseconds)
{
    const wxStopWatch watch;
    for (;;) {
        wxYield();
        wxTheApp->ProcessIdle();
        if (condition())
            return true;
        if (watch.Time() > limitMilliseconds)
            return false;
        wxMilliSleep(5);
    }
}

bool Tests::pumpUntilStable(const std::function<bool()>& condition, int stableMilliseconds,
                            int limitMilliseconds)
{
    wxStopWatch held;
    return pumpUntil(
        [&] {
            if (!condition())
                held.Start();
            return held.Time() >= stableMilliseconds;
        },
        limitMilliseconds);
}

void Tests::pumpEvents(int milliseconds)
{
    pumpUntil([] { return false; }, milliseconds);
}

void Tests::destroyNow(wxWindow* window)
{
    window->Destroy();
    pumpEvents(10);
}

} // namespace Nolvex
