// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"

#include <wx/string.h>

namespace Nolvex::Wx {

/// The message for a failed assertion of the toolkit, or none for one that is known to be harmless: the
/// locale check of hosts that set a locale, and everything about capturing the mouse. For the assertion
/// handler that a host installs
/// (`wxSetAssertHandler`); the library installs none.
NOLVEXLIBWX_EXPORT Optional<String> formatWxAssertFailure(const wxString& file, int line,
                                                          const wxString& func, const wxString& cond,
                                                          const wxString& msg);

} // namespace Nolvex::Wx
