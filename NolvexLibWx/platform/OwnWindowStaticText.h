// SPDX-License-Identifier: MIT
#pragma once

/// Platform::OwnWindowStaticText: a wxStaticText that receives wxEVT_PAINT and the events of the mouse, and
/// whose best size has room for all characters of its label. As a base class of public controls, it is chosen
/// in this header and not by the build.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/OwnWindowStaticText.h"
#else
#include "NolvexLibWx/platform/msw/OwnWindowStaticText.h"
#endif
