// SPDX-License-Identifier: MIT
#pragma once

/// True when the standard error is shown on a terminal.
bool isErrorOnTerminal();
