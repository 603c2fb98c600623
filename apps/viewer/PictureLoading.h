// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/reading/PictureReader.h"

#include <wx/event.h>

#include <functional>
#include <memory>

namespace Nolvex::Viewer {

/// Reads one picture at a time on a thread of its own, so that the window can be used meanwhile. To be used
/// on the main thread.
class PictureLoading : private Noncopyable
{
public:
    using Result = Expected<SharedPicture, String>;

    /// Reads the picture, on the thread. What it uses must not belong to the main thread.
    using Read = std::function<Result(const ReadingProgress&)>;

    /// Called on the main thread when the picture is read, or could not be. May start the next one, or
    /// destroy this object.
    using Done = Function<void(const Result&)>;

    PictureLoading();

    /// Stops the reading, and calls no function. Waits until the reader has noticed.
    ~PictureLoading();

    bool isRunning() const { return m_work != nullptr; }

    /// Begins to read, after a cancel() of what is being read.
    void start(Read read, Done done);

    /// Stops the reading. Nothing is called, and nothing waits for a reader that does not notice at once.
    void cancel();

    /// Waits until the picture is read, and calls the function.
    void finish();

    /// The share of the picture that has been read, from 0 to 1. 0 also if the reader does not tell.
    float progress() const;

private:
    struct Work;

    void run(Work& work);
    void onEnded(int number);
    void joinEnded(bool all);

    std::unique_ptr<Work> m_work;
    Array<std::unique_ptr<Work>> m_cancelled; // whose threads have not been joined
    int m_number = 0;                         // of the picture, since the first one
    wxEvtHandler m_mainThread;                // carries the end of a thread to the main thread
};

} // namespace Nolvex::Viewer
