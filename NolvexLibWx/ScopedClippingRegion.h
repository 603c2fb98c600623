// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/dc.h>

namespace Nolvex::Wx {

/// While an object of this class lives, nothing is drawn on the DC outside the rectangle, nor outside the
/// clipping region that the DC had before. The destructor removes all clipping from the DC.
class ScopedClippingRegion : private Noncopyable
{
public:
    ScopedClippingRegion(wxDC& dc, wxRect rect) : m_dc(&dc) { m_dc->SetClippingRegion(rect); }

    ~ScopedClippingRegion() { m_dc->DestroyClippingRegion(); }

private:
    wxDC* m_dc;
};

} // namespace Nolvex::Wx
