// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureOpening.h"

#include "apps/viewer/ImageFile.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

namespace {

const wchar_t* const NO_MEMORY = L"There is not enough memory for the picture.";
const wchar_t* const KEPT = L" The picture stays in the list.";

} // namespace

PictureOpening::PictureOpening(Workspace& workspace, Messages messages)
    : m_workspace(workspace), m_messages(std::move(messages))
{
    m_workspace.limitMemory(MAX_MEMORY);
}

void PictureOpening::open(const Array<Io::Path>& files)
{
    interrupt();
    const Array<PictureId> ids = m_workspace.addFiles(files);
    m_candidates.assign(ids.begin(), ids.end());
    m_readsAgain = true;
    tryNext();
}

void PictureOpening::show(PictureId id)
{
    interrupt();
    m_candidates.assign(1, id);
    m_readsAgain = false;
    tryNext();
}

void PictureOpening::step(int steps)
{
    // Steps that come faster than pictures are read lead on from what is being read.
    const Optional<PictureId> from = m_wanted;
    interrupt();
    m_readsAgain = false;
    // Those behind take the place of pictures that cannot be read.
    for (int passed = 0; passed < static_cast<int>(m_workspace.pictures().size()); ++passed) {
        if (const Optional<PictureId> id =
                m_workspace.neighbour(steps + (steps < 0 ? -passed : passed), from))
            m_candidates.push_back(*id);
    }
    tryNext();
}

void PictureOpening::showLayer(std::size_t layer)
{
    const SharedPicture picture = m_workspace.currentPicture();
    if (!picture || layer >= picture->layers().size())
        return;
    interrupt();
    if (layer == picture->layer())
        return goOn();
    m_name = picture->layers()[layer].name;
    begin(m_workspace.current()->id, Presentation::KEEP,
          [picture, layer](const ReadingProgress& progress) -> Result {
              Expected<SharedPicture, String> read = readOtherLayer(*picture, layer, progress);
              return read ? Result(Arrival{*std::move(read), {}}) : Unexpected{read.error()};
          });
}

void PictureOpening::reload(PictureId id)
{
    if (std::ranges::find(m_reloads, id) == m_reloads.end())
        m_reloads.push_back(id);
    if (!isRunning())
        goOn();
}

// Reads what is to be read again, or tells that nothing is left to read.
void PictureOpening::goOn()
{
    while (!m_reloads.empty() && !isRunning()) {
        const OpenPicture* const known = m_workspace.find(m_reloads.front());
        m_reloads.pop_front();
        if (known == nullptr || !known->canBeReadAgain())
            continue;
        m_name = known->name;
        m_reloading = known->id;
        begin(known->id, Presentation::KEEP, readingOf(*known));
    }
    if (!isRunning() && onEnded)
        onEnded();
}

// The state is that from before, so that a change while the file is read is noticed afterwards.
PictureOpening::Reading::Work PictureOpening::readingOf(const OpenPicture& open)
{
    return [file = open.source, layer = open.layer](const ReadingProgress& progress) -> Result {
        const Optional<FileState> state = stateOf(file);
        Expected<SharedPicture, String> read = readPictureFile(file, layer, progress);
        return read ? Result(Arrival{*std::move(read), state}) : Unexpected{read.error()};
    };
}

void PictureOpening::showUnsaved(const SharedPicture& picture)
{
    interrupt();
    m_workspace.setCurrent(m_workspace.add({}, picture, PictureOrigin::DESKTOP));
    goOn();
}

void PictureOpening::cancel()
{
    m_reloads.clear();
    m_reloading.reset();
    interrupt();
    goOn();
}

// Stops reading for something else. What was being read again will be read again after that.
void PictureOpening::interrupt()
{
    if (isRunning() && m_reloading)
        m_reloads.push_front(*m_reloading);
    m_reloading.reset();
    m_wanted.reset();
    m_candidates.clear();
    m_reading.cancel();
}

void PictureOpening::finish()
{
    while (isRunning())
        m_reading.finish();
}

// Shows the first candidate that has been read or can be read.
void PictureOpening::tryNext()
{
    const OpenPicture* wanted = nullptr;
    while (wanted == nullptr && !m_candidates.empty()) {
        wanted = m_workspace.find(m_candidates.front());
        m_candidates.pop_front();
    }
    if (wanted == nullptr) {
        goOn();
        return;
    }
    if (wanted->picture && (!m_readsAgain || !wanted->canBeReadAgain())) {
        m_candidates.clear();
        m_workspace.setCurrent(wanted->id);
        goOn();
        return;
    }
    m_name = wanted->name;
    m_wanted = wanted->id;
    begin(wanted->id, Presentation::SHOW, readingOf(*wanted));
}

void PictureOpening::begin(PictureId id, Presentation presentation, Reading::Work read)
{
    m_reading.start(std::move(read), [this, id, presentation](const Optional<Result>& result) {
        onRead(id, presentation, result.value_or(Unexpected{String(NO_MEMORY)}));
    });
}

void PictureOpening::onRead(PictureId id, Presentation presentation, const Result& result)
{
    m_wanted.reset();
    m_reloading.reset();
    const OpenPicture* const known = m_workspace.find(id);
    if (known == nullptr) // closed meanwhile
        return tryNext();
    if (result) {
        m_candidates.clear();
        m_workspace.setPicture(id, result->picture, result->sourceState);
        if (presentation == Presentation::SHOW)
            m_workspace.setCurrent(id);
        m_messages.report(openedMessage(*result->picture));
        goOn();
        return;
    }
    const bool isKnownPicture = known->wasRead;
    if (!isKnownPicture)
        m_workspace.close(id);
    m_messages.complain(result.error() + (isKnownPicture ? KEPT : L""));
    tryNext();
}

} // namespace Nolvex::Viewer
