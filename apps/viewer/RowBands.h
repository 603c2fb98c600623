// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <future>
#include <thread>
#include <vector>

namespace Nolvex::Viewer {

/// Calls work(first, end) for bands of rows, on as many threads as the processor has cores, and returns when
/// every band is done. An exception of the work reaches the caller.
template<class Work>
void runInBands(int rows, const Work& work)
{
    constexpr int MIN_ROWS = 64; // fewer are done before a thread has started
    constexpr int MAX_THREADS = 8;
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    const int bands = std::clamp(std::min(cores, rows / MIN_ROWS), 1, MAX_THREADS);
    std::vector<std::future<void>> others;
    others.reserve(static_cast<std::size_t>(bands));
    const auto begin = [&](int band) { return static_cast<int>(std::int64_t(rows) * band / bands); };
    for (int band = 1; band < bands; ++band) {
        // The default policy runs the band in get() if no thread can be had.
        others.push_back(std::async(work, begin(band), begin(band + 1)));
    }
    work(0, begin(1));
    for (std::future<void>& other : others)
        other.get();
}

} // namespace Nolvex::Viewer
