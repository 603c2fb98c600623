// SPDX-License-Identifier: MIT
// A program as a user of the package would begin it: shows a window with a control of the library, closes the
// window by itself, and succeeds if the libraries that it runs with are those that it was compiled for.
#include "NolvexLib/Version.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"

#include <wx/frame.h>

#include <cstdio>
#include <cstring>

int main()
{
    using namespace Nolvex;
    LibWx::startup(LibWx::ApplicationType::APPLICATION);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Stranger");
    new Wx::AutoSizedButton(frame, "Press", 80, 20);
    frame->Show();
    frame->CallAfter([frame] { frame->Close(); });
    const int result = LibWx::runEventLoop();
    LibWx::shutdown();
    std::printf("compiled for %s, runs with %s\n", NOLVEX_VERSION, loadedVersion());
    return result == 0 && std::strcmp(NOLVEX_VERSION, loadedVersion()) == 0 ? 0 : 1;
}
