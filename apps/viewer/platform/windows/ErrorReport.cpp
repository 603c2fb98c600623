// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/ErrorReport.h"

#include "NolvexLib/String.h"

#include <windows.h>

#include <cstdio>

void Nolvex::Viewer::reportError(const std::string& message)
{
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    if (errors == nullptr || errors == INVALID_HANDLE_VALUE)
        MessageBoxW(nullptr, String::fromUtf8(message).c_str(), L"nolvex-viewer", MB_OK | MB_ICONERROR);
    else
        std::fprintf(stderr, "nolvex-viewer: %s\n", message.c_str());
}
