// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureOpening.h"

#include "apps/viewer/ImageFile.h"

#include <utility>

namespace Nolvex::Viewer {

namespace {

const wchar_t* const NO_MEMORY = L"There is not enough memory for the picture.";

} // namespace

PictureOpening::PictureOpening(Workspace& workspace, Messages messages)
    : m_workspace(workspace), m_messages(std::move(messages))
{}

void PictureOpening::open(const Array<Io::Path>& files)
{
    cancel();
    const Array<PictureId> ids = m_workspace.addFiles(files);
    m_candidates.assign(ids.begin(), ids.end());
    m_readsAgain = true;
    tryNext();
}

void PictureOpening::show(PictureId id)
{
    cancel();
    m_candidates.assign(1, id);
    m_readsAgain = false;
    tryNext();
}

void PictureOpening::step(int steps)
{
    cancel();
    m_readsAgain = false;
    // Those behind take the place of pictures that cannot be read.
    for (int passed = 0; passed < static_cast<int>(m_workspace.pictures().size()); ++passed) {
        if (const Optional<PictureId> id = m_workspace.neighbour(steps + (steps < 0 ? -passed : passed)))
            m_candidates.push_back(*id);
    }
    tryNext();
}

void PictureOpening::showLayer(std::size_t layer)
{
    const SharedPicture picture = m_workspace.currentPicture();
    if (!picture || layer >= picture->layers().size())
        return;
    cancel();
    if (layer == picture->layer())
        return;
    m_name = picture->layers()[layer].name;
    begin(m_workspace.current()->id, Presentation::KEEP, [picture, layer](const ReadingProgress& progress) {
        return readOtherLayer(*picture, layer, progress);
    });
}

void PictureOpening::reload(PictureId id)
{
    const OpenPicture* const known = m_workspace.find(id);
    if (known == nullptr || known->file.isEmpty())
        return;
    cancel();
    m_name = known->name;
    const String layer = known->picture ? known->picture->layers()[known->picture->layer()].name : String();
    begin(id, Presentation::KEEP, [file = known->file, layer](const ReadingProgress& progress) {
        return readPictureFile(file, layer, progress);
    });
}

void PictureOpening::showUnsaved(const SharedPicture& picture)
{
    cancel();
    present(m_workspace.add({}, picture, PictureOrigin::DESKTOP));
}

void PictureOpening::cancel()
{
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
    if (wanted == nullptr)
        return;
    if (wanted->picture && (!m_readsAgain || wanted->file.isEmpty())) {
        m_candidates.clear();
        present(wanted->id);
        return;
    }
    m_name = wanted->name;
    begin(wanted->id, Presentation::SHOW,
          [file = wanted->file](const ReadingProgress& progress) { return readPictureFile(file, progress); });
}

void PictureOpening::begin(PictureId id, Presentation presentation, Reading::Work read)
{
    m_reading.start(std::move(read), [this, id, presentation](const Optional<Result>& result) {
        onRead(id, presentation, result.value_or(Unexpected{String(NO_MEMORY)}));
    });
}

void PictureOpening::onRead(PictureId id, Presentation presentation, const Result& result)
{
    const OpenPicture* const known = m_workspace.find(id);
    if (known == nullptr) // closed meanwhile
        return tryNext();
    if (result) {
        m_candidates.clear();
        m_workspace.setPicture(id, *result);
        if (presentation == Presentation::SHOW)
            present(id);
        m_messages.report(openedMessage(**result));
        return;
    }
    if (!known->picture)
        m_workspace.close(id);
    m_messages.complain(result.error());
    tryNext();
}

void PictureOpening::present(PictureId id)
{
    m_workspace.setCurrent(id);
    m_workspace.limitMemory(MAX_MEMORY);
}

} // namespace Nolvex::Viewer
