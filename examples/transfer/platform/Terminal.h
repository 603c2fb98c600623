// SPDX-License-Identifier: MIT
#pragma once

/// Returns whether the standard error is shown on a terminal.
bool isErrorOnTerminal();
