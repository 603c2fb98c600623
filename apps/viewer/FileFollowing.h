// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "apps/viewer/Workspace.h"

#include <wx/timer.h>

#include <cstdint>
#include <filesystem>
#include <map>

namespace Nolvex::Viewer {

/// What the system tells about a file without opening it.
struct FileState
{
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;

    friend bool operator==(const FileState&, const FileState&) = default;
};

/// Returns nullopt if there is no such file.
Optional<FileState> stateOf(const Io::Path& file);

/// Notices when the files of the current picture and of the reference have changed. A file that is being
/// written changes many times: the change is told when two looks in a row have found the same state. Files
/// are looked at by their time and size, which also works in folders of other machines.
class FileFollowing : private Noncopyable
{
public:
    static constexpr int PERIOD_MS = 300;

    /// `changed` is called with a picture whose file has changed. The workspace must outlive this object.
    FileFollowing(Workspace& workspace, const Function<void(PictureId)>& changed);

    void setActive(bool active);

    bool isActive() const { return m_timer.IsRunning(); }

    /// Looks at the files. Happens by itself while active.
    void look();

private:
    struct Followed
    {
        Io::Path file;
        Optional<FileState> told; // when the picture was read, or its last change was told
        Optional<FileState> seen;
    };

    void look(const OpenPicture& picture);

    Workspace& m_workspace;
    Function<void(PictureId)> m_changed;
    wxTimer m_timer;
    std::map<PictureId, Followed> m_followed;
};

} // namespace Nolvex::Viewer
