// SPDX-License-Identifier: MIT
#include "examples/transfer/platform/Terminal.h"

#include <unistd.h>

bool isErrorOnTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}
