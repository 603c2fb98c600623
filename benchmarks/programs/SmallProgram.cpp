// SPDX-License-Identifier: MIT
// A program with one window, which starts wxWidgets through the library.
#include "NolvexLibWx/NolvexLibWx.h"
#include "programs/SmallWindow.h"

int main()
{
    Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::APPLICATION);
    Nolvex::Benchmarks::showSmallWindow();
    const int result = Nolvex::LibWx::runEventLoop();
    Nolvex::LibWx::shutdown();
    return result;
}
