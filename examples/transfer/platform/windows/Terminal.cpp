// SPDX-License-Identifier: MIT
#include "examples/transfer/platform/Terminal.h"

#include <cstdio>

#include <io.h>

bool isErrorOnTerminal()
{
    return _isatty(_fileno(stderr)) != 0;
}
