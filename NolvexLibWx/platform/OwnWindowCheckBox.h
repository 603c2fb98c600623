// SPDX-License-Identifier: MIT
#pragma once

/// Platform::OwnWindowCheckBox: a wxCheckBox that is painted by its derived class in wxEVT_PAINT and receives
/// the Tab key. As a base class of a public control, it is chosen in this header and not by the build, so
/// that programs can compile the header.
#include <wx/defs.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/OwnWindowCheckBox.h"
#else
#include "NolvexLibWx/platform/msw/OwnWindowCheckBox.h"
#endif
