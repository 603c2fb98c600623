// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/NativePaint.h"

#include <wx/dcclient.h>

#include <utility>

namespace Nolvex {

class Platform::NativePaint::Connection : private Noncopyable
{
public:
    Connection(wxWindow& control, std::function<void(wxDC&)> paint)
        : m_control(control), m_paint(std::move(paint))
    {
        m_control.Bind(wxEVT_PAINT, &Connection::onPaint, this);
    }

    ~Connection() { m_control.Unbind(wxEVT_PAINT, &Connection::onPaint, this); }

private:
    void onPaint(wxPaintEvent& event)
    {
        if (m_control.IsEnabled()) {
            event.Skip();
            return;
        }
        wxPaintDC dc(&m_control);
        m_paint(dc);
    }

    wxWindow& m_control;
    std::function<void(wxDC&)> m_paint;
};

Platform::NativePaint::NativePaint(wxWindow& control, std::function<void(wxDC&)> paint)
    : m_connection(std::make_unique<Connection>(control, std::move(paint)))
{}

Platform::NativePaint::~NativePaint() = default;

} // namespace Nolvex
