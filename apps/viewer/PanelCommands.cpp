// SPDX-License-Identifier: MIT
#include "apps/viewer/PanelCommands.h"

#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/CommandStates.h"
#include "apps/viewer/WindowSize.h"

#include <wx/frame.h>

#include <algorithm>

namespace Nolvex::Viewer {

PanelCommands::PanelCommands(wxFrame& window, wxWindow& content, wxWindow& view, CommandStates& states)
    : m_window(window), m_content(content), m_view(view), m_states(states)
{}

void PanelCommands::add(Command command, wxWindow& panel, Place place)
{
    panel.Hide();
    m_entries.push_back({command, &panel, place});
    bindCommand(m_window, command, [this, command] { show(command, !isShown(command)); });
}

const PanelCommands::Entry& PanelCommands::entryOf(Command command) const
{
    return *std::ranges::find(m_entries, command, &Entry::command);
}

bool PanelCommands::isShown(Command command) const
{
    return entryOf(command).panel->IsShown();
}

void PanelCommands::show(Command command, bool show)
{
    const auto [_, panel, place] = entryOf(command);
    m_states.check(command, show);
    if (show == panel->IsShown())
        return;
    const int more = place == Place::BESIDE ? panel->GetBestSize().x + Wx::scaleByDpi(MARGIN) : 0;
    const int wanted = m_window.GetClientSize().x + (show ? more : -more);
    panel->Show(show);
    makeRoom();
    widen(m_window, wanted - m_window.GetClientSize().x);
    if (!show)
        m_view.SetFocus();
}

void PanelCommands::hideBeside()
{
    for (const Entry& entry : m_entries) {
        if (entry.place == Place::BESIDE)
            show(entry.command, false);
    }
}

void PanelCommands::makeRoom()
{
    makeRoomFor(m_content, m_window);
}

} // namespace Nolvex::Viewer
