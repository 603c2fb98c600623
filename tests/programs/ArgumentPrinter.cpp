// SPDX-License-Identifier: MIT
// NolvexArgumentPrinter FILE [ARGUMENT...]: writes its own path and its arguments to the file in UTF-8, with
// a line feed behind each.
#include "apps/program/platform/ProcessArguments.h"

#include <fstream>

int main(int argc, char** argv)
{
    using namespace Nolvex;
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    if (arguments.empty())
        return 1;
    std::ofstream file(arguments.front().native(), std::ios::binary);
    file << Program::programFile().nativeStr().toUtf8() << '\n';
    for (std::size_t i = 1; i < arguments.size(); ++i)
        file << arguments[i].nativeStr().toUtf8() << '\n';
    return file.good() ? 0 : 1;
}
