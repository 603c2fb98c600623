// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-client.h>

#include <cstdint>

namespace Nolvex::Testing {

/// The requests of two protocols by which a program plays a mouse and a keyboard: wlr-virtual-pointer and
/// virtual-keyboard. No package describes these protocols, so the descriptions that libwayland needs stand
/// here. The numbers are those that go over the wire.
namespace PointerRequest {
enum : std::uint32_t
{
    MOTION_ABSOLUTE = 1,
    BUTTON = 2,
    FRAME = 4,
    AXIS_SOURCE = 5,
    AXIS_DISCRETE = 7,
};
}

namespace KeyboardRequest {
enum : std::uint32_t
{
    KEYMAP = 0,
    KEY = 1,
    MODIFIERS = 2,
};
}

const wl_interface& pointerManagerInterface();
const wl_interface& keyboardManagerInterface();

/// Asks a manager for a new pointer of the seat.
wl_proxy* createPointer(wl_proxy* manager, wl_seat* seat);

/// Asks a manager for a new keyboard of the seat.
wl_proxy* createKeyboard(wl_proxy* manager, wl_seat* seat);

/// Sends a request that creates and destroys nothing.
template<typename... Arguments>
void sendRequest(wl_proxy* proxy, std::uint32_t request, Arguments... arguments)
{
    wl_proxy_marshal_flags(proxy, request, nullptr, 1, 0, arguments...);
}

} // namespace Nolvex::Testing
