// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace Nolvex::Benchmarks {

/// A piece of work to be timed. It keeps its result from being optimised away (benchmark::DoNotOptimize).
using Work = std::function<void()>;

/// The two works that are compared. Both do the same, or the peer does the work that limits ours, such as
/// copying the memory.
struct Contest
{
    Work peer;
    Work ours;
};

/// A figure of a benchmark program: the time of the peer divided by the time of ours, so that more is better.
/// Define one in a namespace and it is registered:
///
///     const Figure COPY("copy", 0.9, [] { ...allocate...; return Contest{peer, ours}; });
///
/// The two works are timed in turn, pair by pair, and the median of the pairs' ratios is the figure. Other
/// load on the machine slows both works alike.
class Figure
{
public:
    /// `prepare` is called when the figure is measured, and the contest is destroyed after the measurement.
    Figure(std::string name, double goal, std::function<Contest()> prepare);
    Figure(std::string name, double goal, Work peer, Work ours);

    const std::string& name() const { return m_name; }

    double goal() const { return m_goal; }

    /// Measuring takes some seconds. Work that takes seconds itself is timed five times.
    double measure() const;

private:
    std::string m_name;
    double m_goal;
    std::function<Contest()> m_prepare;
};

/// Measures the registered figures in the order of their names and prints a line for each,
/// `NAME ratio VALUE goal GOAL`. Arguments: --list prints the names only, --filter REGEX takes the figures
/// whose name holds a match, --check makes a missed goal an error. Returns what main() is to return: 0, 1
/// when --check found a missed goal, 2 for arguments it does not know.
int measureFigures(int argc, const char* const* argv);

} // namespace Nolvex::Benchmarks
