// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/WindowWatch.h"

namespace Nolvex {

Platform::WindowWatch::WindowWatch(WindowHandle /*window*/, Function<void()> /*onDestroyed*/) {}

Platform::WindowWatch::~WindowWatch() = default;

} // namespace Nolvex
