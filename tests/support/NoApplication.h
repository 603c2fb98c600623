// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>

namespace Nolvex::Tests {

/// Takes the application object away for as long as it lives, as it is before the toolkit's start.
struct NoApplication
{
    wxAppConsole* application = wxAppConsole::GetInstance();

    NoApplication() { wxAppConsole::SetInstance(nullptr); }

    ~NoApplication() { wxAppConsole::SetInstance(application); }

    NoApplication(const NoApplication&) = delete;
    NoApplication& operator=(const NoApplication&) = delete;
};

} // namespace Nolvex::Tests
