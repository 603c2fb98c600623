// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-client.h>

#include <cstdint>

namespace Nolvex::Testing {

/// Returns the time of an event of input, in milliseconds.
std::uint32_t eventTime();

/// The mouse of a desktop of the given size, which is that of all its outputs together.
class VirtualPointer
{
public:
    VirtualPointer(wl_proxy* manager, wl_seat* seat, std::uint32_t width, std::uint32_t height);

    void move(std::uint32_t x, std::uint32_t y);

    /// `button` is a code of the kernel, such as BTN_LEFT.
    void press(std::uint32_t button, bool down);

    /// Turns the wheel down by one notch, or up.
    void turnWheel(bool down);

private:
    wl_proxy* m_pointer;
    std::uint32_t m_width;
    std::uint32_t m_height;
};

} // namespace Nolvex::Testing
