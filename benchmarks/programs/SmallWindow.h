// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace Nolvex::Benchmarks {

/// Shows the window of a small program, whose event loop ends when the window has been painted.
inline void showSmallWindow()
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "small");
    auto* panel = new wxPanel(frame);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(new wxStaticText(panel, wxID_ANY, "A small program"));
    sizer->Add(new wxCheckBox(panel, wxID_ANY, "checked"));
    panel->SetSizer(sizer);
    panel->Bind(wxEVT_PAINT, [frame](wxPaintEvent& event) {
        event.Skip();
        frame->CallAfter([frame] {
            frame->Destroy();
            wxApp::GetInstance()->ExitMainLoop();
        });
    });
    frame->Show();
}

} // namespace Nolvex::Benchmarks
