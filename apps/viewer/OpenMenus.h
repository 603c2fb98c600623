// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// Counts the open menus of a window, which get the keys while they are open.
class OpenMenus : private Noncopyable
{
public:
    /// The object must live until the window is destroyed.
    explicit OpenMenus(wxWindow& window);

    bool isAnyOpen() const { return m_count > 0; }

private:
    int m_count = 0;
};

} // namespace Nolvex::Viewer
