// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/string.h>

namespace Nolvex::Wx {

/// Returns the message for a failed assertion of wxWidgets, or nullopt for an assertion that is known to be
/// harmless: the locale check, which fails in hosts that set a locale, and all assertions of CaptureMouse.
/// Intended for the assertion handler of a host (`wxSetAssertHandler`), as the library installs none.
NOLVEXLIBWX_EXPORT Optional<String> formatWxAssertFailure(const wxString& file, int line,
                                                          const wxString& func, const wxString& cond,
                                                          const wxString& msg);

} // namespace Nolvex::Wx
