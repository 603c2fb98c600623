// SPDX-License-Identifier: MIT
#pragma once

#include <wx/stattext.h>

#ifdef __WXGTK__
#include "NolvexLibWx/platform/gtk/OwnWindowStaticText.h"
#else

namespace Nolvex::Platform {

/// A label that is sent wxEVT_PAINT and the events of the mouse. Everywhere but on GTK the toolkit's own is
/// one.
using OwnWindowStaticText = wxStaticText;

} // namespace Nolvex::Platform

#endif
