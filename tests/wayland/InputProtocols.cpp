// SPDX-License-Identifier: MIT
#include "tests/wayland/InputProtocols.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace Nolvex {

namespace {

// libwayland wants an entry for each argument; only those that are objects have an interface.
constexpr std::size_t MAX_ARGUMENTS = 5;
std::array<const wl_interface*, MAX_ARGUMENTS> NO_OBJECTS{};

wl_message request(const char* name, const char* arguments)
{
    return {name, arguments, NO_OBJECTS.data()};
}

// The letters stand for the types of the arguments: unsigned and signed numbers, fixed-point numbers, file
// descriptors, objects, which may be missing after a question mark, and new objects.
const wl_message POINTER_REQUESTS[] = {
    request("motion", "uff"),   request("motion_absolute", "uuuuu"),
    request("button", "uuu"),   request("axis", "uuf"),
    request("frame", ""),       request("axis_source", "u"),
    request("axis_stop", "uu"), request("axis_discrete", "uufi"),
    request("destroy", ""),
};

const wl_message KEYBOARD_REQUESTS[] = {
    request("keymap", "uhu"),
    request("key", "uuu"),
    request("modifiers", "uuuu"),
    request("destroy", ""),
};

const wl_interface POINTER{"zwlr_virtual_pointer_v1", 1, static_cast<int>(std::size(POINTER_REQUESTS)),
                           POINTER_REQUESTS,          0, nullptr};
const wl_interface KEYBOARD{"zwp_virtual_keyboard_v1", 1, static_cast<int>(std::size(KEYBOARD_REQUESTS)),
                            KEYBOARD_REQUESTS,         0, nullptr};

const wl_interface* POINTER_OBJECTS[] = {&wl_seat_interface, &POINTER};
const wl_interface* KEYBOARD_OBJECTS[] = {&wl_seat_interface, &KEYBOARD};

const wl_message POINTER_MANAGER_REQUESTS[] = {{"create_virtual_pointer", "?on", POINTER_OBJECTS}};
const wl_message KEYBOARD_MANAGER_REQUESTS[] = {{"create_virtual_keyboard", "on", KEYBOARD_OBJECTS}};

const wl_interface POINTER_MANAGER{"zwlr_virtual_pointer_manager_v1", 1, 1,
                                   POINTER_MANAGER_REQUESTS,          0, nullptr};
const wl_interface KEYBOARD_MANAGER{"zwp_virtual_keyboard_manager_v1", 1, 1,
                                    KEYBOARD_MANAGER_REQUESTS,         0, nullptr};

wl_proxy* create(wl_proxy* manager, const wl_interface& made, wl_seat* seat)
{
    return wl_proxy_marshal_flags(manager, 0, &made, 1, 0, seat, nullptr);
}

} // namespace

const wl_interface& Testing::pointerManagerInterface()
{
    return POINTER_MANAGER;
}

const wl_interface& Testing::keyboardManagerInterface()
{
    return KEYBOARD_MANAGER;
}

wl_proxy* Testing::createPointer(wl_proxy* manager, wl_seat* seat)
{
    return create(manager, POINTER, seat);
}

wl_proxy* Testing::createKeyboard(wl_proxy* manager, wl_seat* seat)
{
    return create(manager, KEYBOARD, seat);
}

} // namespace Nolvex
