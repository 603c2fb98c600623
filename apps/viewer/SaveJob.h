// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/TaskbarProgress.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/view/SceneRenderer.h"

#include <wx/event.h>

#include <memory>
#include <thread>

namespace Nolvex::Viewer {

/// A picture and the file that it is saved as.
struct SaveTask
{
    SharedPicture picture;
    Io::Path file;
    ImageFormat format = ImageFormat::PNG;
    Wx::ImageSaveSettings settings;
    /// How the picture is shown, if that is saved and not the picture itself. The settings have no meaning
    /// then.
    Optional<Scene> view{};
};

/// Writes one file at a time on a thread of its own, and shows the progress on the task bar button of a
/// window. To be used on the main thread.
class SaveJob : private Noncopyable
{
public:
    /// Called on the main thread when a file is written, with the reason if that failed.
    using Done = Function<void(const SaveTask& task, const Optional<String>& failure)>;

    explicit SaveJob(Done done) : m_done(std::move(done)) {}

    /// Waits until the file is written, and does not call the function.
    ~SaveJob();

    bool isRunning() const { return m_isRunning; }

    /// Begins to write the file. No other file may be being written.
    void start(SaveTask task, Wx::TaskbarProgress progress);

    /// Waits until the file is written, and calls the function if it has not been called yet.
    void finish();

private:
    void write(Wx::TaskbarProgress& progress);

    Done m_done;
    SaveTask m_task;
    Optional<String> m_failure;
    bool m_isRunning = false; // from the start until the end has been told
    int m_number = 0;         // of the file, since the start
    std::thread m_thread;
    wxEvtHandler m_mainThread; // carries the end of the thread to the main thread
};

} // namespace Nolvex::Viewer
