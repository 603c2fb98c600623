// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "apps/viewer/Progress.h"

#include <wx/event.h>

#include <atomic>
#include <functional>
#include <memory>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace Nolvex::Viewer {

/// Does one thing at a time on a thread of its own, so that the window can be used meanwhile. To be used on
/// the main thread.
template<class Result>
class BackgroundTask : private Noncopyable
{
public:
    /// Does the work, on the thread. What it uses must not belong to the main thread.
    using Work = std::function<Result(const Progress&)>;

    /// Called on the main thread when the work is done, with nullopt if there was not enough memory. May
    /// start the next work, or destroy this object.
    using Done = Function<void(const Optional<Result>&)>;

    BackgroundTask() = default;

    /// Stops the work, and calls no function. Waits until the work has noticed.
    ~BackgroundTask()
    {
        cancel();
        joinEnded(true);
    }

    bool isRunning() const { return m_run != nullptr; }

    /// Begins the work, after a cancel() of what is being done.
    void start(Work work, Done done);

    /// Stops the work. Nothing is called, and nothing waits for work that does not notice at once.
    void cancel();

    /// Waits until the work is done, and calls the function.
    void finish();

    /// The share of the work that is done, from 0 to 1. 0 also if the work does not tell.
    float progress() const { return m_run ? m_run->share.load() : 0.0f; }

private:
    struct Run
    {
        Work work;
        Done done;
        int number = 0;
        std::atomic<bool> isCancelled = false;
        std::atomic<bool> hasEnded = false;
        std::atomic<float> share = 0.0f;
        Optional<Result> result;
        std::thread thread;
    };

    void doWork(Run& run);
    void onEnded(int number);
    void joinEnded(bool all);

    std::unique_ptr<Run> m_run;
    Array<std::unique_ptr<Run>> m_cancelled; // whose threads have not been joined
    int m_number = 0;                        // of the work, since the first one
    wxEvtHandler m_mainThread;               // carries the end of a thread to the main thread
};

template<class Result>
void BackgroundTask<Result>::start(Work work, Done done)
{
    cancel();
    m_run = std::make_unique<Run>();
    m_run->work = std::move(work);
    m_run->done = std::move(done);
    m_run->number = ++m_number;
    try {
        m_run->thread = std::thread([this, &run = *m_run] { doWork(run); });
    } catch (const std::system_error&) {
        doWork(*m_run); // the system has no thread left
    }
}

template<class Result>
void BackgroundTask<Result>::cancel()
{
    if (!m_run)
        return;
    m_run->isCancelled = true;
    m_cancelled.push_back(std::move(m_run));
    joinEnded(false);
}

template<class Result>
void BackgroundTask<Result>::finish()
{
    if (!m_run)
        return;
    const std::unique_ptr<Run> run = std::move(m_run);
    if (run->thread.joinable())
        run->thread.join();
    const Done done = run->done;
    done(run->result);
}

template<class Result>
void BackgroundTask<Result>::doWork(Run& run)
{
    try {
        run.result = run.work([&run](float share) {
            run.share = share;
            return !run.isCancelled;
        });
    } catch (const std::bad_alloc&) {
        run.result.reset();
    }
    // By the time of the call the main thread may have finished or cancelled this run.
    m_mainThread.CallAfter([this, number = run.number] { onEnded(number); });
    run.hasEnded = true;
}

template<class Result>
void BackgroundTask<Result>::onEnded(int number)
{
    joinEnded(false);
    if (m_run && m_run->number == number)
        finish();
}

template<class Result>
void BackgroundTask<Result>::joinEnded(bool all)
{
    std::erase_if(m_cancelled, [all](const std::unique_ptr<Run>& run) {
        if (!all && !run->hasEnded)
            return false;
        if (run->thread.joinable())
            run->thread.join();
        return true;
    });
}

} // namespace Nolvex::Viewer
