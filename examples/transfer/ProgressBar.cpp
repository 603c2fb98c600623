// SPDX-License-Identifier: MIT
#include "examples/transfer/ProgressBar.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

// The standard library does not know what a terminal is.
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr int WIDTH = 40;
constexpr int MARK = 6; // of a bar that only shows that something goes on

bool errorIsTerminal()
{
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

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
    if (errorIsTerminal())
        m_thread = std::thread([this] { run(); });
}

ProgressBar::~ProgressBar()
{
    m_ended = true;
    if (m_thread.joinable())
        m_thread.join();
}

void ProgressBar::run()
{
    for (int step = 0; !m_ended; ++step) {
        draw(step);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    // The line belongs to whoever writes next.
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
