// SPDX-License-Identifier: MIT
#pragma once

/// Platform::SelfPaintedPanel: a wxPanel for controls that paint themselves, whose font and colours are cheap
/// to change. As a base class of public controls, it is chosen in this header and not by the build.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/SelfPaintedPanel.h"
#else
#include "NolvexLibWx/platform/msw/SelfPaintedPanel.h"
#endif
