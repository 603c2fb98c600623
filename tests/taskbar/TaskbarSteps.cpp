// SPDX-License-Identifier: MIT
// Shows progress on the task bar as the lines of the standard input say, each "ACTION OBJECT [FRACTION]".
// Writes "done" after each line.
#include "NolvexLib/Array.h"
#include "NolvexLibWx/TaskbarProgress.h"

#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <thread>

using Nolvex::Wx::TaskbarProgress;

namespace {

using Objects = std::map<int, TaskbarProgress>;

// Docks know programs, not windows, so that any address serves as a window.
int window = 0;

void useFromEightThreads(TaskbarProgress& progress)
{
    constexpr int ROUNDS = 1000;
    Nolvex::Array<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&progress] {
            for (int round = 0; round < ROUNDS; ++round) {
                progress.setProgress(static_cast<float>(round) / ROUNDS);
                progress.setIndeterminate();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

bool obey(const std::string& line, Objects& objects)
{
    std::istringstream words(line);
    std::string action;
    int number = 0;
    words >> action >> number;
    if (action == "new")
        return objects.emplace(number, Nolvex::WindowHandle{&window}).second;
    if (action == "new-without-window")
        return objects.emplace(number, Nolvex::WindowHandle{}).second;
    if (action == "delete")
        return objects.erase(number) == 1;
    TaskbarProgress& progress = objects.at(number);
    float fraction = 0;
    if (action == "idle")
        progress.setIdle();
    else if (action == "indeterminate")
        progress.setIndeterminate();
    else if (action == "threads")
        useFromEightThreads(progress);
    else if (action == "progress" && words >> fraction)
        progress.setProgress(fraction);
    else
        return false;
    return true;
}

} // namespace

int main()
{
    Objects objects;
    std::string line;
    while (std::getline(std::cin, line)) {
        if (!obey(line, objects))
            return 1;
        std::cout << "done" << std::endl; // NOLINT(performance-avoid-endl): the reader waits for it
    }
    return 0;
}
