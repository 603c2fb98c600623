// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"

#include <wx/string.h>

namespace Nolvex::Wx {

// Both hold wide text on every system; nothing is lost either way, zero characters included.

inline wxString toWxString(StringView text)
{
    return wxString(text.view().data(), text.length());
}

inline String toString(const wxString& text)
{
    return String(text.ToStdWstring());
}

} // namespace Nolvex::Wx
