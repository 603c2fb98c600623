// SPDX-License-Identifier: MIT
#include "apps/viewer/WindowFitting.h"

#include "apps/viewer/WindowSize.h"
#include "apps/viewer/view/ImageView.h"

#include <wx/toplevel.h>

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

WindowFitting::WindowFitting(wxTopLevelWindow& window, const ImageView& view, Workspace& workspace)
    : m_window(window), m_view(view)
{
    workspace.observe([this](Flags<Workspace::Change> changes) {
        if (changes.has(Workspace::Change::CURRENT) && std::exchange(m_width, {}) == m_view.GetClientSize().x)
            fit();
    });
}

void WindowFitting::begin()
{
    // Panels beside the view leave it its width.
    m_width = m_view.GetClientSize().x;
}

void WindowFitting::fit()
{
    if (m_window.IsMaximized() || m_window.IsFullScreen())
        return;
    const wxRect screen = screenOf(m_window);
    const wxSize client =
        withinBounds(m_view.shownSize() + m_window.GetClientSize() - m_view.GetClientSize(), screen);
    if (!m_window.IsShown()) {
        // A window that has never been shown has no place yet.
        m_window.SetClientSize(client);
        m_window.Centre();

        return;
    }
    const wxRect before = m_window.GetRect();
    const wxSize size = before.GetSize() + client - m_window.GetClientSize();
    wxPoint corner = before.GetPosition() + (before.GetSize() - size) / 2;
    corner.x = std::max(screen.x, std::min(corner.x, screen.GetRight() + 1 - size.x));
    corner.y = std::max(screen.y, std::min(corner.y, screen.GetBottom() + 1 - size.y));
    m_window.SetSize(wxRect(corner, size));
}

} // namespace Nolvex::Viewer
