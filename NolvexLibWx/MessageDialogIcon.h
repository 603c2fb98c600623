// SPDX-License-Identifier: MIT
#pragma once

// This header includes <windows.h> first, so that no later include can bring the macro back.
#ifdef _WIN32 // <windows.h>, which other systems do not have, makes ERROR a macro
#include <wx/msw/wrapwin.h>
#undef ERROR
#endif

namespace Nolvex::Wx {

/// The picture of a message dialog.
enum class MessageDialogIcon : int
{
    NONE = 0,
    ERROR = 1,
    WARNING = 2,
    INFO = 3,
    QUESTION = 4,
    SUCCESS = 5,
};

} // namespace Nolvex::Wx
