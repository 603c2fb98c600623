// SPDX-License-Identifier: MIT
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/TaskbarProgress.h"
#include "NolvexLibWx/c/detail/Guard.h"

using namespace Nolvex;

struct NolvexTaskbarProgress
{
    Wx::TaskbarProgress progress;
};

namespace {

// Progress is of no use to a caller when it fails.
template<class Body>
void ignoringFailure(const Body& body)
{
    C::guarded([&] {
        body();
        return NOLVEX_OK;
    });
}

} // namespace

NolvexStatus nolvexBeginTaskbarProgress(void* window, NolvexTaskbarProgress** progress)
{
    return C::guarded([&] {
        *progress = new NolvexTaskbarProgress{Wx::TaskbarProgress(WindowHandle{window})};
        return NOLVEX_OK;
    });
}

void nolvexSetProgress(NolvexTaskbarProgress* progress, float fraction)
{
    ignoringFailure([&] { progress->progress.setProgress(fraction); });
}

void nolvexSetIndeterminate(NolvexTaskbarProgress* progress)
{
    ignoringFailure([&] { progress->progress.setIndeterminate(); });
}

void nolvexSetIdle(NolvexTaskbarProgress* progress)
{
    ignoringFailure([&] { progress->progress.setIdle(); });
}

void nolvexEndTaskbarProgress(NolvexTaskbarProgress* progress)
{
    delete progress;
}
