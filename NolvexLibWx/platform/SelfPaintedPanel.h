// SPDX-License-Identifier: MIT
#pragma once

/// Platform::SelfPaintedPanel: a wxPanel for controls that paint themselves, whose font and colours cost
/// nothing to change. The base of public controls, hence chosen here and not by the build.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/SelfPaintedPanel.h"
#else
#include "NolvexLibWx/platform/msw/SelfPaintedPanel.h"
#endif
