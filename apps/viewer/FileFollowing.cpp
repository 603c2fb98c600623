// SPDX-License-Identifier: MIT
#include "apps/viewer/FileFollowing.h"

namespace Nolvex::Viewer {

FileFollowing::FileFollowing(Workspace& workspace, const Function<void(PictureId)>& changed)
    : m_workspace(workspace), m_changed(changed)
{
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { look(); });
    // A picture is followed from the time on when it is first shown.
    m_workspace.observe([this](Flags<Workspace::Change>) {
        if (isActive())
            beginToFollow();
    });
}

void FileFollowing::beginToFollow()
{
    for (const OpenPicture* const picture : {m_workspace.current(), m_workspace.reference()}) {
        if (picture != nullptr && picture->canBeReadAgain() && !m_followed.contains(picture->id))
            follow(*picture, picture->sourceState);
    }
}

void FileFollowing::follow(const OpenPicture& picture, const Optional<FileState>& known)
{
    const Optional<FileState> now = stateOf(picture.source);
    m_followed.insert_or_assign(picture.id, Followed{picture.source, known ? known : now, now});
}

void FileFollowing::setActive(bool active)
{
    m_followed.clear();
    if (active) {
        for (const OpenPicture& picture : m_workspace.pictures()) {
            if (picture.picture && picture.canBeReadAgain())
                follow(picture, {});
        }
        m_timer.Start(PERIOD_MS);
    } else {
        m_timer.Stop();
    }
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
    if (!picture.canBeReadAgain())
        return;
    const auto known = m_followed.find(picture.id);
    if (known == m_followed.end() || known->second.file != picture.source)
        return follow(picture, picture.sourceState);
    Followed& followed = known->second;
    const Optional<FileState> now = stateOf(picture.source);
    const bool isStable = followed.seen == now;
    followed.seen = now;
    // A file that is being replaced may be missing for a moment.
    if (!now || !isStable || followed.told == now || picture.sourceState == now)
        return;
    followed.told = now;
    m_changed(picture.id);
}

} // namespace Nolvex::Viewer
