// SPDX-License-Identifier: MIT
#include "apps/program/platform/ErrorReport.h"

#include "NolvexLib/String.h"

#include <windows.h>

#include <cstdio>

void Nolvex::Program::reportError(const char* program, const std::string& message)
{
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    if (errors == nullptr || errors == INVALID_HANDLE_VALUE)
        MessageBoxW(nullptr, String::fromUtf8(message).c_str(), String::fromUtf8(program).c_str(),
                    MB_OK | MB_ICONERROR);
    else
        std::fprintf(stderr, "%s: %s\n", program, message.c_str());
}
