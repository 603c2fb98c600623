// SPDX-License-Identifier: MIT
#include "apps/viewer/Workspace.h"

#include "NolvexLibWx/StringConversions.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

namespace {

String inLowerCase(const String& text)
{
    return Wx::toString(Wx::toWxString(text).Lower());
}

std::uint64_t byteCount(const Picture& picture)
{
    return picture.image().rowBytes() * static_cast<std::uint64_t>(picture.size().y);
}

} // namespace

const OpenPicture* Workspace::find(PictureId id) const
{
    const auto found = std::ranges::find(m_pictures, id, &OpenPicture::id);
    return found == m_pictures.end() ? nullptr : &*found;
}

OpenPicture* Workspace::findOwn(PictureId id)
{
    return const_cast<OpenPicture*>(find(id)); // an element of this object's own list
}

const OpenPicture* Workspace::findFile(const Io::Path& file) const
{
    const auto found = std::ranges::find(m_pictures, file, &OpenPicture::file);
    return file.isEmpty() || found == m_pictures.end() ? nullptr : &*found;
}

SharedPicture Workspace::currentPicture() const
{
    const OpenPicture* const shown = current();
    return shown == nullptr ? nullptr : shown->picture;
}

PictureId Workspace::add(const Io::Path& file, const SharedPicture& picture, PictureOrigin origin)
{
    const auto id = static_cast<PictureId>(++m_lastId);
    m_pictures.push_back({id, file, picture ? picture->name() : file.fileName(), picture, origin});
    tell(Change::LIST);
    return id;
}

Array<PictureId> Workspace::addFiles(const Array<Io::Path>& files)
{
    const std::size_t count = m_pictures.size();
    Array<PictureId> ids;
    for (const Io::Path& file : files) {
        const OpenPicture* const known = findFile(file);
        const PictureId id = known != nullptr ? known->id : static_cast<PictureId>(++m_lastId);
        if (known == nullptr)
            m_pictures.push_back({id, file, file.fileName(), nullptr, PictureOrigin::FILE});
        ids.push_back(id);
    }
    if (m_pictures.size() != count)
        tell(Change::LIST);
    return ids;
}

void Workspace::close(PictureId id)
{
    const auto closed = std::ranges::find(m_pictures, id, &OpenPicture::id);
    if (closed == m_pictures.end())
        return;
    Flags<Change> changes = Change::LIST;
    if (m_reference == id) {
        m_reference.reset();
        changes.set(Change::REFERENCE);
    }
    const auto after = m_pictures.erase(closed);
    if (m_current == id) {
        m_current.reset();
        const auto isRead = [](const OpenPicture& picture) { return picture.picture != nullptr; };
        if (const auto next = std::find_if(after, m_pictures.end(), isRead); next != m_pictures.end())
            m_current = next->id;
        else if (const auto last = std::find_if(m_pictures.rbegin(), m_pictures.rend(), isRead);
                 last != m_pictures.rend())
            m_current = last->id;
        changes.set(Change::CURRENT);
    }
    tell(changes);
}

void Workspace::setCurrent(PictureId id)
{
    OpenPicture* const picture = findOwn(id);
    if (picture == nullptr || picture->picture == nullptr)
        return;
    picture->lastShown = ++m_looks;
    if (m_current == id)
        return;
    m_current = id;
    tell(Change::CURRENT);
}

void Workspace::setPicture(PictureId id, const SharedPicture& picture)
{
    OpenPicture* const changed = findOwn(id);
    if (changed == nullptr)
        return;
    changed->picture = picture;
    Flags<Change> changes;
    if (m_current == id)
        changes.set(Change::PICTURE);
    if (m_reference == id)
        changes.set(Change::REFERENCE);
    tell(changes);
}

void Workspace::setFile(PictureId id, const Io::Path& file)
{
    OpenPicture* const saved = findOwn(id);
    if (saved == nullptr)
        return;
    saved->file = file;
    saved->name = file.fileName();
    if (saved->picture)
        saved->picture = saved->picture->named(saved->name);
    tell(m_current == id ? Change::LIST | Flags(Change::PICTURE) : Change::LIST);
}

void Workspace::setReference(Optional<PictureId> id)
{
    if (m_reference == id)
        return;
    m_reference = id;
    tell(Change::REFERENCE);
}

void Workspace::setFilter(const String& text)
{
    m_filter = inLowerCase(text);
    tell(Change::LIST);
}

bool Workspace::isListed(const OpenPicture& picture) const
{
    return m_filter.isEmpty() || inLowerCase(picture.name).find(m_filter) != String::NPOS;
}

Optional<PictureId> Workspace::neighbour(int steps) const
{
    const OpenPicture* const from = current();
    Array<PictureId> listed;
    Optional<std::ptrdiff_t> place;
    for (const OpenPicture& picture : m_pictures) {
        // The current picture is a place to start from even if the filter hides it.
        if (&picture == from)
            place = static_cast<std::ptrdiff_t>(listed.size());
        if (&picture == from || isListed(picture))
            listed.push_back(picture.id);
    }
    if (listed.size() < (place ? 2U : 1U))
        return {};
    const auto count = static_cast<std::ptrdiff_t>(listed.size());
    const std::ptrdiff_t target = ((place.value_or(0) + steps) % count + count) % count;
    const PictureId id = listed[static_cast<std::size_t>(target)];
    return m_current == id ? Optional<PictureId>() : id;
}

void Workspace::limitMemory(std::uint64_t bytes)
{
    std::uint64_t taken = 0;
    Array<OpenPicture*> droppable;
    for (OpenPicture& picture : m_pictures) {
        if (!picture.picture)
            continue;
        taken += byteCount(*picture.picture);
        if (!picture.file.isEmpty() && m_current != picture.id && m_reference != picture.id)
            droppable.push_back(&picture);
    }
    std::ranges::sort(droppable, {}, &OpenPicture::lastShown);
    for (OpenPicture* picture : droppable) {
        if (taken <= bytes)
            return;
        taken -= byteCount(*picture->picture);
        picture->picture = nullptr;
    }
}

void Workspace::tell(Flags<Change> changes)
{
    if (changes.isEmpty())
        return;
    // An observer may change the workspace and with it the list of observers.
    const Array<Observer> observers = m_observers;
    for (const Observer& observer : observers)
        observer(changes);
}

} // namespace Nolvex::Viewer
