// SPDX-License-Identifier: MIT
#pragma once

/// Lets a program clean up unfinished work before an interruption (SIGINT) or a termination (SIGTERM) ends
/// it.
namespace Interruption {

/// From now on the first of these signals is only recorded. The second one ends the program at once.
void watch();

/// Returns whether one of the signals has come since `watch`.
bool isRequested();

/// Ends the program by the signal that came, so that its caller sees how it ended. Returns if none came.
void endProgram();

} // namespace Interruption
