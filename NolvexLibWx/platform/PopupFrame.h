// SPDX-License-Identifier: MIT
#pragma once

/// Platform::PopupFrame: a wxFrame that the window system treats as a popup. As a base class of public
/// classes, it is chosen in this header and not by the build.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/PopupFrame.h"
#else
#include "NolvexLibWx/platform/msw/PopupFrame.h"
#endif
