// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Nolvex::Testing {

/// A keyboard with the American layout.
class VirtualKeyboard
{
public:
    /// Throws std::runtime_error if the layout cannot be made.
    VirtualKeyboard(wl_proxy* manager, wl_seat* seat);

    /// Presses and releases a key. `keys` names the key as XKB does, after any of "ctrl+", "shift+" and
    /// "alt+": "ctrl+shift+Home". Throws std::runtime_error if there is no such key.
    void type(std::string keys);

    /// Throws std::runtime_error if a character is on no key.
    void typeText(const std::string& text);

private:
    struct ContextDeleter
    {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
    };

    struct KeymapDeleter
    {
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    };

    void sendKeymap();
    void typeSymbol(xkb_keysym_t symbol, std::uint32_t modifiers);
    void pressAndRelease(xkb_keycode_t code, std::uint32_t modifiers);
    void setModifiers(std::uint32_t modifiers);

    std::unique_ptr<xkb_context, ContextDeleter> m_context;
    std::unique_ptr<xkb_keymap, KeymapDeleter> m_keymap;
    wl_proxy* m_keyboard;
};

} // namespace Nolvex::Testing
