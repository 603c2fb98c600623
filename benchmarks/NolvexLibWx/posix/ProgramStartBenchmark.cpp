// SPDX-License-Identifier: MIT
#include "support/PairedRatio.h"

#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <stdexcept>
#include <string>

extern char** environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace Nolvex::Benchmarks {

namespace {

// Runs a process from its start to its end. The process paints a window in between.
void runProgram(const char* name)
{
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::string path = (folder / name).string();
    char* const arguments[] = {path.data(), nullptr};
    pid_t process = 0;
    int status = -1;
    if (posix_spawn(&process, path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0)
        throw std::runtime_error("A program of the benchmark failed.");
}

const Figure START(
    "program_start", 0.98, [] { runProgram("NolvexSmallWxProgram"); },
    [] { runProgram("NolvexSmallProgram"); });

} // namespace

} // namespace Nolvex::Benchmarks
