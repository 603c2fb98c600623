// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/NolvexLibWx.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <memory>

namespace Nolvex::Benchmarks {

/// Keeps the library started and an event loop and a frame alive for as long as a work needs them.
class WindowStage
{
public:
    explicit WindowStage(const wxSize& size = wxDefaultSize)
    {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
        m_loop = std::make_unique<wxEventLoop>();
        wxEventLoopBase::SetActive(m_loop.get());
        m_frame = new wxFrame(nullptr, wxID_ANY, "benchmark", wxPoint(50, 50), size);
        m_panel = new wxPanel(m_frame);
    }

    ~WindowStage()
    {
        m_frame->Destroy();
        settle();
        wxEventLoopBase::SetActive(nullptr);
        m_loop.reset();
        LibWx::shutdown();
    }

    WindowStage(const WindowStage&) = delete;
    WindowStage& operator=(const WindowStage&) = delete;

    wxWindow* panel() const { return m_panel; }

    void show() const
    {
        m_frame->Show();
        settle();
    }

    /// Processes the events that have arrived.
    static void pump()
    {
        wxYield();
        wxTheApp->ProcessIdle();
    }

private:
    // Gives the window system the time to show or hide the frame.
    static void settle()
    {
        for (int i = 0; i < 50; ++i) {
            pump();
            wxMilliSleep(2);
        }
    }

    std::unique_ptr<wxEventLoop> m_loop;
    wxFrame* m_frame = nullptr;
    wxPanel* m_panel = nullptr;
};

} // namespace Nolvex::Benchmarks
