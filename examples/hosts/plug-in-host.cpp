// SPDX-License-Identifier: MIT
// A host that was not linked with the library: loads the plug-in and has it start and stop the library as
// often as asked for.
#include "examples/hosts/LoadedLibrary.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: plug-in-host PLUG-IN TIMES\n", stderr);
        return EXIT_FAILURE;
    }
    const LoadedLibrary plugIn(argv[1]);
    const auto show = plugIn.function("showWindowOnce");
    if (show == nullptr) {
        std::fprintf(stderr, "%s is no plug-in.\n", argv[1]);
        return EXIT_FAILURE;
    }
    const long times = std::strtol(argv[2], nullptr, 10);
    for (long time = 0; time < times; ++time) {
        if (show() != 0)
            return EXIT_FAILURE;
    }
    std::printf("started and stopped %ld times\n", times);
    return EXIT_SUCCESS;
}
