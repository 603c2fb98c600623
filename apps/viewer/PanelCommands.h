// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Noncopyable.h"
#include "apps/viewer/Command.h"

class WXDLLIMPEXP_FWD_CORE wxFrame;

namespace Nolvex::Viewer {

class CommandStates;

/// The commands that show and hide panels of a window. A panel that stands beside the picture takes no room
/// from it: the window becomes wider while the panel is shown.
class PanelCommands : private Noncopyable
{
public:
    /// `content` is the panel that fills the window, and `view` gets the focus when a panel is hidden. All of
    /// them and the states must outlive this object.
    PanelCommands(wxFrame& window, wxWindow& content, wxWindow& view, CommandStates& states);

    enum class Place
    {
        BELOW,
        BESIDE,
    };

    /// Hides the panel and binds the command to it.
    void add(Command command, wxWindow& panel, Place place);

    void show(Command command, bool show);

    bool isShown(Command command) const;

    /// Hides all panels beside the picture, so that the window has the size that it has without them.
    void hideBeside();

    /// Enlarges the window where its controls need more room than they have.
    void makeRoom();

private:
    struct Entry
    {
        Command command;
        wxWindow* panel;
        Place place;
    };

    const Entry& entryOf(Command command) const;

    wxFrame& m_window;
    wxWindow& m_content;
    wxWindow& m_view;
    CommandStates& m_states;
    Array<Entry> m_entries;
};

} // namespace Nolvex::Viewer
