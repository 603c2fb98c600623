// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"
#include "support/PairedRatio.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <memory>

namespace Nolvex::Benchmarks {

namespace {

std::atomic<int> g_atomicCount = 0;

void countAtomically()
{
    g_atomicCount.fetch_add(1);
    benchmark::ClobberMemory();
    g_atomicCount.fetch_sub(1);
    benchmark::ClobberMemory();
}

void startAndStop()
{
    LibWx::startup(LibWx::ApplicationType::APPLICATION);
    LibWx::shutdown();
}

// A single pair takes less time than reading the clock, so that one call makes many pairs.
template<void (*WORK)()>
void thousandTimes()
{
    for (int i = 0; i < 1000; ++i)
        WORK();
}

// The library stays started meanwhile, as in a host in which two parts use the library.
Contest nestedStart()
{
    const std::shared_ptr<void> started(nullptr, [](void*) { LibWx::shutdown(); });
    LibWx::startup(LibWx::ApplicationType::APPLICATION);
    return {thousandTimes<countAtomically>, [started] { thousandTimes<startAndStop>(); }};
}

// Starts and stops wxWidgets as a program does that does not use the library: the same parts of wxWidgets,
// without the core library, the timer and the counting.
void startAndStopTheToolkit()
{
    wxLog::EnableLogging(false);
    wxApp::SetInstance(new wxApp);
    for (wxImageHandler* handler :
         {static_cast<wxImageHandler*>(new wxPNGHandler), static_cast<wxImageHandler*>(new wxJPEGHandler),
          static_cast<wxImageHandler*>(new wxICOHandler), static_cast<wxImageHandler*>(new wxBMPHandler),
          static_cast<wxImageHandler*>(new wxGIFHandler), static_cast<wxImageHandler*>(new wxTIFFHandler),
          static_cast<wxImageHandler*>(new wxTGAHandler)})
        wxImage::AddHandler(handler);
    wxInitialize();
    wxSocketBase::Initialize();
    wxTheApp->CallOnInit();
    wxTheApp->OnExit();
    wxSocketBase::Shutdown();
    wxUninitialize();
}

const Figure NESTED("nested_start_stop", 0.45, nestedStart);
const Figure FIRST("first_start_last_stop", 0.9, startAndStopTheToolkit, startAndStop);

} // namespace

} // namespace Nolvex::Benchmarks
