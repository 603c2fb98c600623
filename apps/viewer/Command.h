// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>

namespace Nolvex::Viewer {

/// The identifiers of what the viewer's window can be told to do, by its menu or by whoever sends it
/// wxEVT_MENU.
enum Command : int
{
    OPEN = wxID_OPEN,
    COPY = wxID_COPY,
    CLOSE = wxID_CLOSE,
    CAPTURE_SCREEN = wxID_HIGHEST + 1,
    SHOW_LOG,
    SHOW_TOOLTIPS,
    LIGHT_SURROUND,
    ABOUT = wxID_ABOUT,
};

} // namespace Nolvex::Viewer
