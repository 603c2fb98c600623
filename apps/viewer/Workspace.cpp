// SPDX-License-Identifier: MIT
#include "apps/viewer/Workspace.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/LayeredFile.h"
#include "apps/viewer/platform/FileIdentity.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

namespace Nolvex::Viewer {

namespace {

String inLowerCase(const String& text)
{
    return Wx::toString(Wx::toWxString(text).Lower());
}

// The content of the file stays in memory for the other layers.
std::uint64_t byteCount(const Picture& picture)
{
    const std::uint64_t file = picture.file() != nullptr ? picture.file()->byteCount() : 0;
    return file + picture.image().rowBytes() * static_cast<std::uint64_t>(picture.size().y);
}

OpenPicture entryOf(PictureId id, const Io::Path& file, const String& name, PictureOrigin origin)
{
    OpenPicture open;
    open.id = id;
    open.file = file;
    open.name = name;
    open.origin = origin;
    open.source = file;
    return open;
}

void setImage(OpenPicture& open, const SharedPicture& picture)
{
    open.picture = picture == nullptr || picture->name() == open.name ? picture : picture->named(open.name);
    if (picture == nullptr)
        return;
    open.layer = picture->layers()[picture->layer()].name;
    open.wasRead = true;
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
    if (file.isEmpty())
        return nullptr;
    const Io::Path identity = Platform::identityOf(file);
    const auto found = std::ranges::find_if(m_pictures, [&identity](const OpenPicture& open) {
        return open.canBeReadAgain() && Platform::identityOf(open.source) == identity;
    });
    return found == m_pictures.end() ? nullptr : &*found;
}

SharedPicture Workspace::currentPicture() const
{
    const OpenPicture* const shown = current();
    return shown == nullptr ? nullptr : shown->picture;
}

PictureId Workspace::add(const Io::Path& file, const SharedPicture& picture, PictureOrigin origin)
{
    const auto id = static_cast<PictureId>(++m_lastId);
    m_pictures.push_back(entryOf(id, file, picture ? picture->name() : file.fileName(), origin));
    setImage(m_pictures.back(), picture);
    makeRoomFor(id);
    tell(Change::LIST);
    return id;
}

Array<PictureId> Workspace::addFiles(const Array<Io::Path>& files)
{
    const std::size_t count = m_pictures.size();
    // What a path stands for may change, so that the map is made anew each time.
    std::map<std::filesystem::path::string_type, PictureId> known;
    for (const OpenPicture& open : m_pictures) {
        if (open.canBeReadAgain())
            known.emplace(Platform::identityOf(open.source).native().native(), open.id);
    }
    Array<PictureId> ids;
    for (const Io::Path& file : files) {
        const auto next = static_cast<PictureId>(m_lastId + 1);
        const auto [entry, isNew] = known.emplace(Platform::identityOf(file).native().native(), next);
        if (isNew) {
            ++m_lastId;
            m_pictures.push_back(entryOf(next, file, file.fileName(), PictureOrigin::FILE));
        }
        ids.push_back(entry->second);
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
    makeRoomFor({});
    tell(Change::CURRENT);
}

void Workspace::setPicture(PictureId id, const SharedPicture& picture, const Optional<FileState>& sourceState)
{
    OpenPicture* const changed = findOwn(id);
    if (changed == nullptr)
        return;
    setImage(*changed, picture);
    if (sourceState)
        changed->sourceState = sourceState;
    makeRoomFor(id);
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
    if (saved->canBeReadAgain() && Platform::identityOf(saved->source) == Platform::identityOf(file))
        saved->source = {};
    saved->file = file;
    saved->name = file.fileName();
    setImage(*saved, saved->picture);
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

Optional<PictureId> Workspace::neighbour(int steps, Optional<PictureId> from) const
{
    const Optional<PictureId> start = from ? from : m_current;
    Array<PictureId> listed;
    std::ptrdiff_t place = steps > 0 ? -1 : 0; // without a start, the first step leads to an end of the list
    for (const OpenPicture& picture : m_pictures) {
        const bool isStart = start == picture.id;
        if (isStart)
            place = static_cast<std::ptrdiff_t>(listed.size());
        // The start is a place to go from even if the filter hides it.
        if (isStart || isListed(picture))
            listed.push_back(picture.id);
    }
    if (listed.empty())
        return {};
    const auto count = static_cast<std::ptrdiff_t>(listed.size());
    const std::ptrdiff_t target = ((place + steps) % count + count) % count;
    const PictureId id = listed[static_cast<std::size_t>(target)];
    return start == id ? Optional<PictureId>() : id;
}

void Workspace::limitMemory(std::uint64_t bytes)
{
    m_maxBytes = bytes;
    makeRoomFor({});
}

void Workspace::makeRoomFor(Optional<PictureId> newest)
{
    std::uint64_t taken = 0;
    Array<OpenPicture*> droppable;
    for (OpenPicture& picture : m_pictures) {
        if (!picture.picture)
            continue;
        taken += byteCount(*picture.picture);
        const bool isNeeded = m_current == picture.id || m_reference == picture.id || newest == picture.id;
        if (picture.canBeReadAgain() && !isNeeded)
            droppable.push_back(&picture);
    }
    std::ranges::sort(droppable, {}, &OpenPicture::lastShown);
    for (OpenPicture* picture : droppable) {
        if (taken <= m_maxBytes)
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
