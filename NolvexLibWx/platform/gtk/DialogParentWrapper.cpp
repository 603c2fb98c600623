// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DialogParentWrapper.h"

#include "NolvexLibWx/platform/WindowWatch.h"

#include <gtk/gtk.h>

namespace Nolvex {

void Wx::DialogParentWrapper::setNativeHandle(WindowHandle window)
{
    m_widget = static_cast<GtkWidget*>(window.native);
}

} // namespace Nolvex
