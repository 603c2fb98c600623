// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DialogParentWrapper.h"

#include "NolvexLibWx/platform/WindowWatch.h"

namespace Nolvex {

void Wx::DialogParentWrapper::setNativeHandle(WindowHandle window)
{
    m_hWnd = static_cast<WXHWND>(window.native);
}

} // namespace Nolvex
