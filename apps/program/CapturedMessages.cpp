// SPDX-License-Identifier: MIT
#include "apps/program/CapturedMessages.h"

#include "NolvexLibWx/StringConversions.h"

namespace Nolvex::Program {

String CapturedMessages::text() const
{
    return Wx::toString(wxString(m_text).Trim());
}

} // namespace Nolvex::Program
