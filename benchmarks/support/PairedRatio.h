// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace Nolvex::Benchmarks {

/// A piece of work to be timed. It keeps its result from being optimised away (benchmark::DoNotOptimize).
using Work = std::function<void()>;

/// What is compared: both do the same, or the peer does what sets the limit, such as copying the memory.
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
/// The two are timed in turn, pair by pair, and the median of the pairs' ratios is the figure: whatever else
/// the machine does meanwhile slows both.
class Figure
{
public:
    /// `prepare` is called when the figure is measured; what its contest owns is freed afterwards.
    Figure(std::string name, double goal, std::function<Contest()> prepare);
    Figure(std::string name, double goal, Work peer, Work ours);

    const std::string& name() const { return m_name; }

    double goal() const { return m_goal; }

    /// Takes some seconds at most, unless one call of the work does.
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
