// SPDX-License-Identifier: MIT
// A host with its own loop, which dispatches the events of wxWidgets between two steps of its own work. A
// worker thread hands its result to the main thread.
#include "NolvexLib/Exception.h"
#include "NolvexLib/Lib.h"
#include "NolvexLibWx/NolvexLibWx.h"

#include <wx/evtloop.h>
#include <wx/frame.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

// Runs until the window is closed.
void runHostLoop(const std::atomic<bool>& closed)
{
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    while (!closed) {
        while (loop.Pending())
            loop.Dispatch();
        Nolvex::LibWx::processAllPendingEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace

int main()
{
    try {
        Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::APPLICATION);
    } catch (const Nolvex::Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }

    std::atomic<bool> closed = false;
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Working ...");
    frame->Bind(wxEVT_CLOSE_WINDOW, [&](wxCloseEvent& event) {
        closed = true;
        event.Skip();
    });
    frame->Show();

    std::thread worker([&] {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        Nolvex::Lib::postToMainThread([&] {
            if (!closed)
                frame->SetTitle("Done");
        });
    });

    runHostLoop(closed);
    worker.join();
    Nolvex::LibWx::shutdown();
    return 0;
}
