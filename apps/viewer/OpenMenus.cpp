// SPDX-License-Identifier: MIT
#include "apps/viewer/OpenMenus.h"

#include <wx/event.h>
#include <wx/window.h>

#include <algorithm>

namespace Nolvex::Viewer {

OpenMenus::OpenMenus(wxWindow& window)
{
    window.Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        ++m_count;
        event.Skip();
    });
    window.Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent& event) {
        m_count = std::max(0, m_count - 1);
        event.Skip();
    });
}

} // namespace Nolvex::Viewer
