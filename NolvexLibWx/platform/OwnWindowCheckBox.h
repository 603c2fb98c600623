// SPDX-License-Identifier: MIT
#pragma once

/// Platform::OwnWindowCheckBox: a wxCheckBox that leaves all painting to whoever derives from it, with
/// wxEVT_PAINT, and keeps the Tab key for itself. The base of a public control, hence chosen here and not by
/// the build.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/OwnWindowCheckBox.h"
#else
#include "NolvexLibWx/platform/msw/OwnWindowCheckBox.h"
#endif
