// SPDX-License-Identifier: MIT
// Compiles only if the enumerator ERROR can be used in a program that includes <windows.h> before and after.
// clang-format off
#include <windows.h>
#include "NolvexLibWx/MessageDialogIcon.h"
#include <windows.h>
// clang-format on

static_assert(static_cast<int>(Nolvex::Wx::MessageDialogIcon::ERROR) == 1);
