// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureLoading.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace Nolvex::Viewer {

/// A picture that is being read.
struct PictureLoading::Work
{
    Read read;
    Done done;
    int number = 0;
    std::atomic<bool> isCancelled = false;
    std::atomic<bool> hasEnded = false;
    std::atomic<float> share = 0.0f;
    Result result = Unexpected{String()};
    std::thread thread;
};

PictureLoading::PictureLoading() = default;

PictureLoading::~PictureLoading()
{
    cancel();
    joinEnded(true);
}

void PictureLoading::start(Read read, Done done)
{
    cancel();
    m_work = std::make_unique<Work>();
    m_work->read = std::move(read);
    m_work->done = std::move(done);
    m_work->number = ++m_number;
    try {
        m_work->thread = std::thread([this, &work = *m_work] { run(work); });
    } catch (const std::system_error&) {
        run(*m_work); // the system has no thread left
    }
}

void PictureLoading::cancel()
{
    if (!m_work)
        return;
    m_work->isCancelled = true;
    m_cancelled.push_back(std::move(m_work));
    joinEnded(false);
}

void PictureLoading::finish()
{
    if (!m_work)
        return;
    const std::unique_ptr<Work> work = std::move(m_work);
    if (work->thread.joinable())
        work->thread.join();
    const Done done = work->done;
    done(work->result);
}

float PictureLoading::progress() const
{
    return m_work ? m_work->share.load() : 0.0f;
}

void PictureLoading::run(Work& work)
{
    try {
        work.result = work.read([&work](float share) {
            work.share = share;
            return !work.isCancelled;
        });
    } catch (const std::bad_alloc&) {
        work.result = Unexpected{String(L"There is not enough memory for the picture.")};
    }
    // By the time of the call the main thread may have finished or cancelled this picture.
    m_mainThread.CallAfter([this, number = work.number] { onEnded(number); });
    work.hasEnded = true;
}

void PictureLoading::onEnded(int number)
{
    joinEnded(false);
    if (m_work && m_work->number == number)
        finish();
}

void PictureLoading::joinEnded(bool all)
{
    std::erase_if(m_cancelled, [all](const std::unique_ptr<Work>& work) {
        if (!all && !work->hasEnded)
            return false;
        if (work->thread.joinable())
            work->thread.join();
        return true;
    });
}

} // namespace Nolvex::Viewer
