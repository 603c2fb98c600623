// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveJob.h"

#include "apps/viewer/writing/PictureWriter.h"

#include <utility>

namespace Nolvex::Viewer {

SaveJob::~SaveJob()
{
    if (isRunning())
        m_thread.join();
}

void SaveJob::start(SaveTask task, Wx::TaskbarProgress progress)
{
    m_task = std::move(task);
    m_failure.reset();
    ++m_number;
    m_thread = std::thread([this, shown = std::move(progress)]() mutable { write(shown); });
}

void SaveJob::finish()
{
    if (!isRunning())
        return;
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
    m_failure = writePictureFile(m_task.file, m_task.picture->image(), m_task.format, m_task.settings,
                                 [&](float share) {
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
