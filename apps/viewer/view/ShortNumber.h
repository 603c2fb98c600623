// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

namespace Nolvex::Viewer {

/// Returns a number with up to four digits, such as "0.1235", "1.2e-09", "inf" and "nan". The decimal point
/// does not depend on the language.
wxString shortNumber(float value);

} // namespace Nolvex::Viewer
