// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// True on the thread that called the first Lib::startup; before that, on none. Another thread becomes the
/// main one only by starting the library anew after its last shutdown. Callable from every thread.
NOLVEXLIB_EXPORT bool isMainThread();

namespace Detail {

/// Makes the calling thread the main one.
void claimMainThread();

} // namespace Detail

} // namespace Nolvex
