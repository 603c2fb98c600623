// SPDX-License-Identifier: MIT
#include "examples/hosts/LibraryWindow.h"

#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include <wx/frame.h>
#include <wx/weakref.h>

#include <cstdio>

namespace {

// The user may close the window at any time.
wxWeakRef<wxFrame> window;

} // namespace

void openLibraryWindow()
{
    if (window != nullptr)
        return window->Raise();
    window = new wxFrame(nullptr, wxID_ANY, "Window of the library");
    auto* button = new Nolvex::Wx::AutoSizedButton(window, "Close", 80, 20);
    button->setClickCallback([] { window->Close(); });
    window->Show();
    std::puts("opened");
}

void closeLibraryWindow()
{
    if (window != nullptr)
        delete window.get();
}
