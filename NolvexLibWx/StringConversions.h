// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/string.h>

namespace Nolvex::Wx {

// String and wxString hold wide text on every system, so the conversions lose nothing, not even zero
// characters.

inline wxString toWxString(StringView text)
{
    return wxString(text.view().data(), text.length());
}

inline String toString(const wxString& text)
{
    return String(text.ToStdWstring());
}

} // namespace Nolvex::Wx
