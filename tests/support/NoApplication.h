// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>

namespace Nolvex::Tests {

/// While the object lives, wxWidgets has no application object, as before its start.
struct NoApplication
{
    wxAppConsole* application = wxAppConsole::GetInstance();

    NoApplication() { wxAppConsole::SetInstance(nullptr); }

    ~NoApplication() { wxAppConsole::SetInstance(application); }

    NoApplication(const NoApplication&) = delete;
    NoApplication& operator=(const NoApplication&) = delete;
};

} // namespace Nolvex::Tests
