// SPDX-License-Identifier: MIT
#include "apps/viewer/RecentMenu.h"

#include "NolvexLibWx/StringConversions.h"

#include <wx/frame.h>
#include <wx/menu.h>

namespace Nolvex::Viewer {

RecentMenu::RecentMenu(wxFrame& window, Workspace& workspace, Settings& settings,
                       const Function<void(const Io::Path&)>& open)
    : m_settings(settings), m_menu(new wxMenu)
{
    wxMenu* const first = window.GetMenuBar()->GetMenu(0);
    first->Insert(1, wxID_ANY, L"Open recent (&x)", m_menu);
    window.Bind(
        wxEVT_MENU,
        [this, open](wxCommandEvent& event) {
            const auto place = static_cast<std::size_t>(event.GetId() - wxID_FILE1);
            if (place < m_files.size())
                open(Io::Path(m_files[place]));
        },
        wxID_FILE1, wxID_FILE9);
    workspace.observe([this, &workspace](Flags<Workspace::Change> changes) {
        const OpenPicture* const shown = workspace.current();
        if (shown == nullptr || !changes.has(Workspace::Change::CURRENT))
            return;
        m_settings.addRecentFile(shown->file);
        update();
    });
    update();
}

void RecentMenu::update()
{
    m_files = m_settings.recentFiles();
    while (m_menu->GetMenuItemCount() > 0)
        m_menu->Destroy(m_menu->FindItemByPosition(0));
    for (std::size_t i = 0; i < m_files.size() && i <= wxID_FILE9 - wxID_FILE1; ++i) {
        // An ampersand of the name would mark a letter.
        const wxString name = Wx::toWxString(String(m_files[i].nativeStr()).replaceAll(L"&", L"&&"));
        m_menu->Append(wxID_FILE1 + static_cast<int>(i), wxString::Format(L"&%d ", int(i) + 1) + name);
    }
}

} // namespace Nolvex::Viewer
