// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureSaving.h"

#include "NolvexLibWx/NativeWindows.h"
#include "apps/viewer/LossQuestion.h"
#include "apps/viewer/SaveDialogs.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/writing/PictureWriter.h"

#include <wx/utils.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <filesystem>

namespace Nolvex::Viewer {

namespace {

bool losesAlpha(const SaveTask& task)
{
    const bool hasAlpha = Image::getPixelFormatChannelCount(task.picture->image().descriptor().format) == 4;
    return !task.view && hasAlpha && task.settings.includeAlpha && !writesAlpha(task.format);
}

} // namespace

String savedMessage(const SaveTask& task)
{
    return (task.view ? L"Saved the view as \"" : L"Saved the picture as \"") + task.file.nativeStr() +
           L"\"." + (losesAlpha(task) ? L" Its alpha was left out." : L"");
}

PictureSaving::PictureSaving(wxWindow& window, Settings& settings, SaveJob::Done done)
    : m_window(window),
      m_settings(settings),
      m_done(std::move(done)),
      m_defaults(settings),
      m_job([this](const SaveTask& task, const Optional<String>& failure) { onWritten(task, failure); })
{}

void PictureSaving::setPicture(const OpenPicture* shown)
{
    m_picture = shown != nullptr ? shown->picture : nullptr;
    m_file = shown != nullptr ? shown->file : Io::Path();
    m_origin = shown != nullptr ? shown->origin : PictureOrigin::FILE;
}

bool PictureSaving::saveAs()
{
    // Another picture may take the place of this one while the dialogs are open.
    const SharedPicture picture = m_picture;
    const Io::Path file = m_file;
    return saveAs(picture, file);
}

bool PictureSaving::saveAs(const SharedPicture& picture, const Io::Path& file)
{
    const wxWeakRef<wxWindow> alive(&m_window);
    if (!picture)
        return false;
    const Io::Path proposal = file.isEmpty() ? m_settings.lastFolder() / Io::Path(picture->name()) : file;
    const Optional<SaveTask> task = askHowToSave(m_window, picture, proposal, m_defaults);
    if (!task || !alive)
        return false;
    m_settings.setLastFolder(task->file.parentDirectory());
    save(*task);
    return true;
}

bool PictureSaving::saveView(const Scene& view)
{
    const wxWeakRef<wxWindow> alive(&m_window);
    if (!view.picture)
        return false;
    const std::filesystem::path original =
        m_file.isEmpty() ? Io::Path(view.picture->name()).native() : m_file.native();
    std::filesystem::path proposal = original.parent_path() / original.stem();
    proposal += "-view.png";
    const Optional<SaveTask> task = askWhereToSaveView(m_window, view, proposal);
    if (!task || !alive)
        return false;
    save(*task);
    return true;
}

void PictureSaving::save(SaveTask task)
{
    waitForFile();
    m_job.start(std::move(task), Wx::TaskbarProgress(Wx::getWindowNativeHandle(&m_window)));
}

bool PictureSaving::letGo()
{
    const wxWeakRef<wxWindow> alive(&m_window);
    if (!waitForFile())
        return false;
    if (!isUnsaved())
        return true;
    // Another picture may be shown by the time of the answer.
    const SharedPicture asked = m_picture;
    const Io::Path file = m_file;
    const LossAnswer answer = askAboutLoss(m_window);
    if (!alive || answer == LossAnswer::CANCEL)
        return false;
    if (answer == LossAnswer::DISCARD)
        return true;
    if (!saveAs(asked, file))
        return false;
    waitForFile();
    return m_wasWritten;
}

bool PictureSaving::waitForFile()
{
    if (!m_job.isRunning())
        return true;
    const wxBusyCursor busy;
    m_job.finish();
    return m_wasWritten;
}

void PictureSaving::onWritten(const SaveTask& task, const Optional<String>& failure)
{
    m_wasWritten = !failure;
    if (m_wasWritten && !task.view && m_picture && &task.picture->image() == &m_picture->image())
        m_file = task.file;
    m_done(task, failure);
}

} // namespace Nolvex::Viewer
