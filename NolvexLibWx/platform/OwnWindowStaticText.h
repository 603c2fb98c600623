// SPDX-License-Identifier: MIT
#pragma once

/// Platform::OwnWindowStaticText is a wxStaticText that receives wxEVT_PAINT and the events of the mouse. Its
/// best size has room for all characters of the label. Public controls derive from this class, so this header
/// chooses the class of the system: the build of a program that uses the library cannot.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/OwnWindowStaticText.h"
#else
#include "NolvexLibWx/platform/msw/OwnWindowStaticText.h"
#endif
