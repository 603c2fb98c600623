// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DialogParentWrapper.h"

#include "NolvexLibWx/platform/WindowWatch.h"

namespace Nolvex {

Wx::DialogParentWrapper::DialogParentWrapper(WindowHandle window)
    : m_watch(std::make_unique<Platform::WindowWatch>(window, [this] { setNativeHandle({}); }))
{
    setNativeHandle(window);
}

Wx::DialogParentWrapper::~DialogParentWrapper()
{
    // With the handle, the destructor of wxWindow would destroy the native window.
    setNativeHandle({});
}

} // namespace Nolvex
