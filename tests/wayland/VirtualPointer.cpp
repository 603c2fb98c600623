// SPDX-License-Identifier: MIT
#include "tests/wayland/VirtualPointer.h"

#include "tests/wayland/InputProtocols.h"

#include <chrono>

namespace Nolvex {

namespace {

constexpr int NOTCH = 15; // the distance that compositors report for one notch of a wheel

} // namespace

std::uint32_t Testing::eventTime()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

Testing::VirtualPointer::VirtualPointer(wl_proxy* manager, wl_seat* seat, std::uint32_t width,
                                        std::uint32_t height)
    : m_pointer(createPointer(manager, seat)), m_width(width), m_height(height)
{}

void Testing::VirtualPointer::move(std::uint32_t x, std::uint32_t y)
{
    sendRequest(m_pointer, PointerRequest::MOTION_ABSOLUTE, eventTime(), x, y, m_width, m_height);
    sendRequest(m_pointer, PointerRequest::FRAME);
}

void Testing::VirtualPointer::press(std::uint32_t button, bool down)
{
    sendRequest(m_pointer, PointerRequest::BUTTON, eventTime(), button,
                static_cast<std::uint32_t>(down ? WL_POINTER_BUTTON_STATE_PRESSED
                                                : WL_POINTER_BUTTON_STATE_RELEASED));
    sendRequest(m_pointer, PointerRequest::FRAME);
}

void Testing::VirtualPointer::turnWheel(bool down)
{
    const int notches = down ? 1 : -1;
    sendRequest(m_pointer, PointerRequest::AXIS_SOURCE,
                static_cast<std::uint32_t>(WL_POINTER_AXIS_SOURCE_WHEEL));
    sendRequest(m_pointer, PointerRequest::AXIS_DISCRETE, eventTime(),
                static_cast<std::uint32_t>(WL_POINTER_AXIS_VERTICAL_SCROLL),
                wl_fixed_from_int(notches * NOTCH), notches);
    sendRequest(m_pointer, PointerRequest::FRAME);
}

} // namespace Nolvex
