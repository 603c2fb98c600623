// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

/// A line on the terminal that shows, for as long as this lives, how much of something is done. Draws nothing
/// when the standard error is no terminal.
class ProgressBar
{
public:
    /// `done` is asked from another thread for the bytes done; without it, or with a `total` of 0, the bar
    /// only shows that something goes on.
    explicit ProgressBar(std::int64_t total, std::function<std::int64_t()> done = {});
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

private:
    void run();
    void draw(int step) const;

    std::int64_t m_total;
    std::function<std::int64_t()> m_done;
    std::atomic<bool> m_ended = false;
    std::thread m_thread;
};
