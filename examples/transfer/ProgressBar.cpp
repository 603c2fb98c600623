// SPDX-License-Identifier: MIT
#include "examples/transfer/ProgressBar.h"

#include "examples/transfer/platform/Terminal.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

namespace {

constexpr int WIDTH = 40;
constexpr int MARK = 6; // the width of the mark that wanders when the total is unknown

// The bars of the program share one line of the terminal.
std::atomic_flag g_lineIsTaken;

void drawLine(int from, int to, const std::string& text)
{
    std::string bar(WIDTH, ' ');
    for (int i = std::max(from, 0); i < std::min(to, WIDTH); ++i)
        bar[static_cast<std::size_t>(i)] = '#';
    std::fprintf(stderr, "\r[%s] %s", bar.c_str(), text.c_str());
}

} // namespace

ProgressBar::ProgressBar(std::int64_t total, std::function<std::int64_t()> done)
    : m_total(total), m_done(std::move(done))
{
    if (isErrorOnTerminal() && !g_lineIsTaken.test_and_set())
        m_thread = std::thread([this] { run(); });
}

ProgressBar::~ProgressBar()
{
    if (!m_thread.joinable())
        return;
    m_ended = true;
    m_thread.join();
    g_lineIsTaken.clear();
}

void ProgressBar::run()
{
    for (int step = 0; !m_ended; ++step) {
        draw(step);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    // The bar is erased, so that the next output starts on an empty line.
    std::fprintf(stderr, "\r%*s\r", WIDTH + MARK + 10, "");
}

void ProgressBar::draw(int step) const
{
    if (!m_done || m_total <= 0) {
        const int at = step % WIDTH;
        drawLine(at, at + MARK, "");
        return;
    }
    const std::int64_t done = std::clamp<std::int64_t>(m_done(), 0, m_total);
    const auto part = static_cast<double>(done) / static_cast<double>(m_total);
    drawLine(0, static_cast<int>(part * WIDTH), std::to_string(static_cast<int>(part * 100)) + " %");
}
