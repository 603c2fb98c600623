// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/ErrorReport.h"

#include <cstdio>

void Nolvex::Viewer::reportError(const std::string& message)
{
    std::fprintf(stderr, "nolvex-viewer: %s\n", message.c_str());
}
