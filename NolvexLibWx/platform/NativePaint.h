// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/dc.h>
#include <wx/window.h>

#include <functional>
#include <memory>

namespace Nolvex::Platform {

/// While it lives, a native text control that is disabled is painted by a function instead of by itself: its
/// background is there already, the DC has its font and begins inside its border. While it is enabled, it
/// paints itself.
class NativePaint : private Noncopyable
{
public:
    /// The control must outlive this. Call it when the control's window has been created.
    NativePaint(wxWindow& control, std::function<void(wxDC&)> paint);
    ~NativePaint();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace Nolvex::Platform
