// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "apps/viewer/FileState.h"
#include "apps/viewer/Workspace.h"

#include <wx/timer.h>

#include <map>

namespace Nolvex::Viewer {

/// Notices when the sources of the current picture and of the reference have changed since the pictures were
/// read. A file that is being written changes many times: the change is told when two looks in a row have
/// found the same state. Files are looked at by their time and size, which also works in folders of other
/// machines.
class FileFollowing : private Noncopyable
{
public:
    static constexpr int PERIOD_MS = 300;

    /// `changed` is called with a picture whose file has changed. The workspace must outlive this object.
    FileFollowing(Workspace& workspace, const Function<void(PictureId)>& changed);

    /// Changes from before the switch are not told.
    void setActive(bool active);

    bool isActive() const { return m_timer.IsRunning(); }

    /// Looks at the files. Happens by itself while active.
    void look();

private:
    struct Followed
    {
        Io::Path file;
        Optional<FileState> told; // or what the file was like when it was first followed
        Optional<FileState> seen;
    };

    void beginToFollow();
    void follow(const OpenPicture& picture, const Optional<FileState>& known);
    void look(const OpenPicture& picture);

    Workspace& m_workspace;
    Function<void(PictureId)> m_changed;
    wxTimer m_timer;
    std::map<PictureId, Followed> m_followed;
};

} // namespace Nolvex::Viewer
