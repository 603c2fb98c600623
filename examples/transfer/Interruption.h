// SPDX-License-Identifier: MIT
#pragma once

/// Lets a program that would leave something half done tidy up when it is interrupted (SIGINT) or terminated
/// (SIGTERM).
namespace Interruption {

/// From now on the first of these signals is only noted; the second one ends the program at once.
void watch();

/// True when one of the signals has come since `watch`.
bool isRequested();

/// Ends the program by the signal that came, so that its caller sees how it ended. Returns if none came.
void endProgram();

} // namespace Interruption
