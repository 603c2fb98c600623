// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

/// A line on the terminal that shows the progress of a piece of work while the object lives. The bar draws
/// nothing if the standard error is no terminal or another bar has the line.
class ProgressBar
{
public:
    /// `done` is called on another thread and returns how many bytes of `total` are done. Without it, or with
    /// a `total` of 0, the bar only shows that the program is at work.
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
