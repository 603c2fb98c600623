// SPDX-License-Identifier: MIT
#include "apps/program/platform/ProcessArguments.h"

#include <system_error>

namespace Nolvex::Program {

Array<Io::Path> processArguments(int argc, char** argv)
{
    Array<Io::Path> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.emplace_back(std::filesystem::path(argv[i]));
    return arguments;
}

Io::Path programFile()
{
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored);
}

} // namespace Nolvex::Program
