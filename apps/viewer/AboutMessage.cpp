// SPDX-License-Identifier: MIT
#include "apps/viewer/AboutMessage.h"

#include "NolvexLib/Version.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"

namespace Nolvex {

void Viewer::showAboutMessage(wxWindow* owner)
{
    Wx::showOkDialog(
        Wx::getWindowNativeHandle(owner), L"About the viewer",
        L"nolvex-viewer " + Wx::toString(wxString(NOLVEX_VERSION)) +
            L"\n\nShows, inspects and saves rendered images. Every control in its window is one of "
            L"NolvexLibWx.\n\nMIT License, the NolvexLibWx authors.",
        Wx::MessageDialogIcon::INFO);
}

} // namespace Nolvex
