// SPDX-License-Identifier: MIT
// NolvexDesktopInput WIDTH HEIGHT: plays the mouse and the keyboard of the Wayland desktop of that size.
// Reads these lines, and answers each with "done" when the compositor has taken the input:
//
//     move X Y       moves the mouse to a point of the desktop
//     press BUTTON   presses a button of the mouse: left, middle or right
//     release BUTTON
//     wheel NOTCHES  turns the wheel, downwards for a positive number
//     key KEYS       presses and releases a key, such as ctrl+shift+Home
//     text TEXT      types a text
#include "tests/wayland/InputProtocols.h"
#include "tests/wayland/VirtualKeyboard.h"
#include "tests/wayland/VirtualPointer.h"

#include <linux/input-event-codes.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace {

using namespace Nolvex;

struct Globals
{
    wl_seat* seat = nullptr;
    wl_proxy* pointerManager = nullptr;
    wl_proxy* keyboardManager = nullptr;
};

void onGlobal(void* data, wl_registry* registry, std::uint32_t number, const char* name,
              std::uint32_t /*version*/)
{
    auto& globals = *static_cast<Globals*>(data);
    const auto bind = [&](const wl_interface& interface) -> void* {
        return std::strcmp(name, interface.name) == 0 ? wl_registry_bind(registry, number, &interface, 1)
                                                      : nullptr;
    };
    if (void* const seat = bind(wl_seat_interface))
        globals.seat = static_cast<wl_seat*>(seat);
    else if (void* const pointers = bind(Testing::pointerManagerInterface()))
        globals.pointerManager = static_cast<wl_proxy*>(pointers);
    else if (void* const keyboards = bind(Testing::keyboardManagerInterface()))
        globals.keyboardManager = static_cast<wl_proxy*>(keyboards);
}

void onGlobalRemoved(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*number*/) {}

constexpr wl_registry_listener LISTENER{&onGlobal, &onGlobalRemoved};

Globals bindGlobals(wl_display* display)
{
    Globals globals;
    wl_registry_add_listener(wl_display_get_registry(display), &LISTENER, &globals);
    wl_display_roundtrip(display);
    if (globals.seat == nullptr || globals.pointerManager == nullptr || globals.keyboardManager == nullptr)
        throw std::runtime_error("the compositor lets no program play a mouse and a keyboard");
    return globals;
}

std::uint32_t buttonCode(const std::string& name)
{
    if (name == "left")
        return BTN_LEFT;
    if (name == "middle")
        return BTN_MIDDLE;
    if (name == "right")
        return BTN_RIGHT;
    throw std::runtime_error("there is no button " + name);
}

void turnWheel(Testing::VirtualPointer& pointer, int notches)
{
    for (int i = 0; i < std::abs(notches); ++i)
        pointer.turnWheel(notches > 0);
}

void obey(const std::string& line, Testing::VirtualPointer& pointer, Testing::VirtualKeyboard& keyboard)
{
    std::istringstream words(line);
    std::string command;
    std::string rest;
    std::getline(words, command, ' ');
    std::getline(words, rest);
    std::istringstream numbers(rest);
    if (int x = 0, y = 0; command == "move" && numbers >> x >> y)
        pointer.move(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
    else if (command == "press" || command == "release")
        pointer.press(buttonCode(rest), command == "press");
    else if (int notches = 0; command == "wheel" && numbers >> notches)
        turnWheel(pointer, notches);
    else if (command == "key")
        keyboard.type(rest);
    else if (command == "text")
        keyboard.typeText(rest);
    else
        throw std::runtime_error("there is no command " + line);
}

void run(std::uint32_t width, std::uint32_t height)
{
    wl_display* const display = wl_display_connect(nullptr);
    if (display == nullptr)
        throw std::runtime_error("there is no Wayland desktop");
    const Globals globals = bindGlobals(display);
    Testing::VirtualPointer pointer(globals.pointerManager, globals.seat, width, height);
    Testing::VirtualKeyboard keyboard(globals.keyboardManager, globals.seat);
    for (std::string line; std::getline(std::cin, line);) {
        obey(line, pointer, keyboard);
        if (wl_display_roundtrip(display) < 0)
            throw std::runtime_error("the compositor refused: " + line);
        std::cout << "done" << std::endl;
    }
    wl_display_disconnect(display);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc != 3)
            throw std::runtime_error("usage: NolvexDesktopInput WIDTH HEIGHT");
        run(static_cast<std::uint32_t>(std::stoul(argv[1])), static_cast<std::uint32_t>(std::stoul(argv[2])));
    } catch (const std::exception& failure) {
        std::cerr << "NolvexDesktopInput: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
