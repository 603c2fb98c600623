// SPDX-License-Identifier: MIT
#include "support/PairedRatio.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <map>
#include <regex>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace Nolvex::Benchmarks {

namespace {

constexpr std::size_t MAX_PAIRS = 25;

/// Work that takes seconds is timed less often: after MAX_SECONDS, MIN_PAIRS are enough.
constexpr std::size_t MIN_PAIRS = 5;
constexpr double MAX_SECONDS = 15.0;

/// In seconds. In shorter turns, the clock and the change from one work to the other would distort the
/// figure, so that shorter work is repeated.
constexpr double MIN_TURN = 0.004;
constexpr double MAX_REPETITIONS = 1e6;

std::map<std::string, Figure>& registry()
{
    static std::map<std::string, Figure> figures;
    return figures;
}

double secondsOf(const Work& work, int repetitions)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repetitions; ++i)
        work();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / repetitions;
}

int repetitionsFor(const Work& work)
{
    secondsOf(work, 1);
    const double once = secondsOf(work, 1);
    return static_cast<int>(std::clamp(std::ceil(MIN_TURN / once), 1.0, MAX_REPETITIONS));
}

struct Options
{
    bool list = false;
    bool check = false;
    std::regex filter{""};
};

/// Throws std::invalid_argument for an unknown argument, and std::regex_error for a bad filter.
Options parse(int argc, const char* const* argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--list")
            options.list = true;
        else if (argument == "--check")
            options.check = true;
        else if (argument == "--filter" && i + 1 < argc)
            options.filter = std::regex(argv[++i]);
        else
            throw std::invalid_argument("usage: " + std::string(argv[0]) +
                                        " [--list] [--filter REGEX] [--check]");
    }
    return options;
}

/// Prints the figure's line. Returns whether the figure meets its goal.
bool report(const Figure& figure)
{
    const double ratio = figure.measure();
    std::printf("%s ratio %.2f goal %.2f\n", figure.name().c_str(), ratio, figure.goal());
    std::fflush(stdout);
    return ratio >= figure.goal();
}

int run(const Options& options)
{
    bool met = true;
    for (const auto& [name, figure] : registry()) {
        if (!std::regex_search(name, options.filter))
            continue;
        if (options.list)
            std::puts(name.c_str());
        else
            met = report(figure) && met;
    }
    return options.check && !met ? 1 : 0;
}

} // namespace

Figure::Figure(std::string name, double goal, std::function<Contest()> prepare)
    : m_name(std::move(name)), m_goal(goal), m_prepare(std::move(prepare))
{
    registry().emplace(m_name, *this);
}

Figure::Figure(std::string name, double goal, Work peer, Work ours)
    : Figure(std::move(name), goal, [contest = Contest{std::move(peer), std::move(ours)}] { return contest; })
{}

double Figure::measure() const
{
    const Contest contest = m_prepare();
    const int peerRepetitions = repetitionsFor(contest.peer);
    const int ourRepetitions = repetitionsFor(contest.ours);
    std::vector<double> ratios;
    double seconds = 0.0;
    while (ratios.size() < MIN_PAIRS || (ratios.size() < MAX_PAIRS && seconds < MAX_SECONDS)) {
        const double peer = secondsOf(contest.peer, peerRepetitions);
        const double ours = secondsOf(contest.ours, ourRepetitions);
        ratios.push_back(peer / ours);
        seconds += peer * peerRepetitions + ours * ourRepetitions;
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::ranges::nth_element(ratios, middle);
    return *middle;
}

int measureFigures(int argc, const char* const* argv)
{
    Options options;
    try {
        options = parse(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
    return run(options);
}

} // namespace Nolvex::Benchmarks
