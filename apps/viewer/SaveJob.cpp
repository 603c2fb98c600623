// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveJob.h"

#include "apps/viewer/view/SceneRows.h"
#include "apps/viewer/writing/PictureWriter.h"

#include <memory>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

Optional<String> writeFile(const SaveTask& task, const Progress& progress)
{
    if (!task.view)
        return writePictureFile(task.file, *task.picture, task.format, task.settings, progress);
    SceneRows rows(*task.view);
    return writeRowsFile(task.file, rows, task.format, progress);
}

} // namespace

SaveJob::~SaveJob()
{
    if (m_thread.joinable())
        m_thread.join();
}

void SaveJob::start(SaveTask task, Wx::TaskbarProgress progress)
{
    m_task = std::move(task);
    m_failure.reset();
    m_isRunning = true;
    ++m_number;
    // The thread must be able to begin with the progress, or leave it for this thread.
    const auto shown = std::make_shared<Wx::TaskbarProgress>(std::move(progress));
    try {
        m_thread = std::thread([this, shown] { write(*shown); });
    } catch (const std::system_error&) {
        write(*shown); // the system has no thread left
    }
}

void SaveJob::finish()
{
    if (!isRunning())
        return;
    m_isRunning = false;
    if (m_thread.joinable())
        m_thread.join();
    // The function may start the next file or destroy this object.
    const SaveTask task = std::exchange(m_task, {});
    const Optional<String> failure = m_failure;
    const Done done = m_done;
    done(task, failure);
}

void SaveJob::write(Wx::TaskbarProgress& progress)
{
    progress.setIndeterminate();
    m_failure = writeFile(m_task, [&](float share) {
        progress.setProgress(share);
        return true;
    });
    progress.setIdle();
    // By then the main thread may have finished this file itself, and started another one.
    m_mainThread.CallAfter([this, number = m_number] {
        if (number == m_number)
            finish();
    });
}

} // namespace Nolvex::Viewer
