// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/dc.h>
#include <wx/window.h>

#include <functional>
#include <memory>

namespace Nolvex::Platform {

/// While an object of this class lives, a function paints a native text control whenever the control is
/// disabled. The background is painted before, the DC has the control's font, and its origin lies inside the
/// control's border. While the control is enabled, it paints itself.
class NativePaint : private Noncopyable
{
public:
    /// The control's window must have been created, and must outlive this object.
    NativePaint(wxWindow& control, std::function<void(wxDC&)> paint);
    ~NativePaint();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace Nolvex::Platform
