// SPDX-License-Identifier: MIT
#include "apps/program/platform/ErrorReport.h"

#include <cstdio>

void Nolvex::Program::reportError(const char* program, const std::string& message)
{
    std::fprintf(stderr, "%s: %s\n", program, message.c_str());
}
