// SPDX-License-Identifier: MIT
// A plug-in: starts the library in a process that knows nothing of it, shows a window for a moment and stops
// the library again.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include <wx/frame.h>

#include <cstdio>

#ifdef _WIN32 // the two ways of naming what a library exports
#define PLUG_IN_EXPORT extern "C" __declspec(dllexport)
#else
#define PLUG_IN_EXPORT extern "C" __attribute__((visibility("default")))
#endif

/// Returns 0 if the window was shown.
PLUG_IN_EXPORT int showWindowOnce()
try {
    using namespace Nolvex;
    LibWx::startup(LibWx::ApplicationType::PLUGIN);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Plug-in");
    new Wx::AutoSizedButton(frame, "Press", 80, 20);
    const bool isShown = frame->Show();
    LibWx::processAllPendingEvents();
    delete frame;
    LibWx::shutdown();
    return isShown ? 0 : 1;

} catch (const Nolvex::Exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
