// SPDX-License-Identifier: MIT
#include "apps/viewer/FileFollowing.h"

#include <system_error>

namespace Nolvex::Viewer {

Optional<FileState> stateOf(const Io::Path& file)
{
    std::error_code failure;
    FileState state;
    state.changed = std::filesystem::last_write_time(file.native(), failure);
    if (!failure)
        state.size = std::filesystem::file_size(file.native(), failure);
    return failure ? Optional<FileState>() : state;
}

FileFollowing::FileFollowing(Workspace& workspace, const Function<void(PictureId)>& changed)
    : m_workspace(workspace), m_changed(changed)
{
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { look(); });
    // A picture is followed from the time on when it is first shown.
    m_workspace.observe([this](Flags<Workspace::Change>) {
        if (isActive())
            look();
    });
}

void FileFollowing::setActive(bool active)
{
    m_followed.clear();
    if (active)
        m_timer.Start(PERIOD_MS);
    else
        m_timer.Stop();
}

void FileFollowing::look()
{
    std::erase_if(m_followed, [this](const auto& entry) { return m_workspace.find(entry.first) == nullptr; });
    // The function may change the workspace.
    if (const OpenPicture* const current = m_workspace.current())
        look(OpenPicture(*current));
    if (const OpenPicture* const reference = m_workspace.reference();
        reference != nullptr && reference != m_workspace.current())
        look(OpenPicture(*reference));
}

void FileFollowing::look(const OpenPicture& picture)
{
    if (picture.file.isEmpty())
        return;
    const Optional<FileState> now = stateOf(picture.file);
    const auto [entry, isNew] = m_followed.try_emplace(picture.id);
    Followed& followed = entry->second;
    if (isNew || followed.file != picture.file) {
        followed = {picture.file, now, now};
        return;
    }
    const bool isStable = followed.seen == now;
    followed.seen = now;
    // A file that is being replaced may be missing for a moment.
    if (!now || !isStable || followed.told == now)
        return;
    followed.told = now;
    m_changed(picture.id);
}

} // namespace Nolvex::Viewer
