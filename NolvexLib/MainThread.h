// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Export.h"

namespace Nolvex {

/// True on the thread that called the first Lib::startup. Before that call there is no main thread. Another
/// thread becomes the main thread by starting the library again after the last shutdown. Every thread may
/// call this function.
NOLVEXLIB_EXPORT bool isMainThread();

namespace Detail {

/// Makes the calling thread the main thread.
void claimMainThread();

} // namespace Detail

} // namespace Nolvex
