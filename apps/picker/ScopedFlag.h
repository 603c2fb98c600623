// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/weakref.h>
#include <wx/window.h>

namespace Nolvex::Picker {

/// Sets a flag until the end of the scope, also if the scope is left by an exception. The flag lives as long
/// as a window, which may be destroyed within the scope.
class ScopedFlag : private Noncopyable
{
public:
    ScopedFlag(wxWindow* window, bool& flag) : m_window(window), m_flag(flag) { m_flag = true; }

    ~ScopedFlag()
    {
        if (m_window)
            m_flag = false;
    }

private:
    wxWeakRef<wxWindow> m_window;
    bool& m_flag;
};

} // namespace Nolvex::Picker
