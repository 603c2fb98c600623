// SPDX-License-Identifier: MIT
#include "tests/wayland/VirtualKeyboard.h"

#include "tests/wayland/InputProtocols.h"
#include "tests/wayland/VirtualPointer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace Nolvex {

namespace {

// The masks of the modifiers in the keymap, whose first eight modifiers are those of X11.
constexpr std::uint32_t SHIFT = 1 << 0;
constexpr std::uint32_t CONTROL = 1 << 2;
constexpr std::uint32_t ALT = 1 << 3;

constexpr xkb_keycode_t FIRST_KEY = 8; // of XKB; the codes of the kernel begin at 0

constexpr struct
{
    std::string_view prefix;
    std::uint32_t mask;
} MODIFIERS[] = {{"ctrl+", CONTROL}, {"shift+", SHIFT}, {"alt+", ALT}};

xkb_keymap* americanKeymap(xkb_context* context)
{
    const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    xkb_keymap* const keymap = context == nullptr
                                   ? nullptr
                                   : xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
    if (keymap == nullptr)
        throw std::runtime_error("there is no American layout of a keyboard");
    return keymap;
}

// Returns the level of the key on which the symbol is, or -1.
int levelOf(xkb_keymap* keymap, xkb_keycode_t key, xkb_keysym_t symbol)
{
    for (const int level : {0, 1}) {
        const xkb_keysym_t* symbols = nullptr;
        const auto index = static_cast<xkb_level_index_t>(level);
        if (xkb_keymap_key_get_syms_by_level(keymap, key, 0, index, &symbols) == 1 && *symbols == symbol)
            return level;
    }
    return -1;
}

} // namespace

Testing::VirtualKeyboard::VirtualKeyboard(wl_proxy* manager, wl_seat* seat)
    : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS)),
      m_keymap(americanKeymap(m_context.get())),
      m_keyboard(createKeyboard(manager, seat))
{
    sendKeymap();
}

void Testing::VirtualKeyboard::sendKeymap()
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    const std::string_view view(text.get());
    const std::size_t size = view.size() + 1;
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    if (file < 0 || write(file, text.get(), size) != static_cast<ssize_t>(size))
        throw std::runtime_error("the layout of the keyboard cannot be written");
    sendRequest(m_keyboard, KeyboardRequest::KEYMAP,
                static_cast<std::uint32_t>(WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1), file,
                static_cast<std::uint32_t>(size));
    // libwayland has duplicated the descriptor.
    close(file);
}

void Testing::VirtualKeyboard::type(std::string keys)
{
    std::uint32_t modifiers = 0;
    for (const auto& [prefix, mask] : MODIFIERS) {
        if (keys.starts_with(prefix)) {
            modifiers |= mask;
            keys.erase(0, prefix.size());
        }
    }
    typeSymbol(xkb_keysym_from_name(keys.c_str(), XKB_KEYSYM_NO_FLAGS), modifiers);
}

void Testing::VirtualKeyboard::typeText(const std::string& text)
{
    for (const char character : text)
        typeSymbol(xkb_utf32_to_keysym(static_cast<unsigned char>(character)), 0);
}

void Testing::VirtualKeyboard::typeSymbol(xkb_keysym_t symbol, std::uint32_t modifiers)
{
    const xkb_keycode_t last = xkb_keymap_max_keycode(m_keymap.get());
    for (xkb_keycode_t key = FIRST_KEY; key <= last && symbol != XKB_KEY_NoSymbol; ++key) {
        const int level = levelOf(m_keymap.get(), key, symbol);
        if (level >= 0) {
            pressAndRelease(key, modifiers | (level == 1 ? SHIFT : 0));
            return;
        }
    }
    throw std::runtime_error("the keyboard has no such key");
}

void Testing::VirtualKeyboard::pressAndRelease(xkb_keycode_t code, std::uint32_t modifiers)
{
    setModifiers(modifiers);
    for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED})
        sendRequest(m_keyboard, KeyboardRequest::KEY, eventTime(),
                    static_cast<std::uint32_t>(code - FIRST_KEY), static_cast<std::uint32_t>(state));
    setModifiers(0);
}

void Testing::VirtualKeyboard::setModifiers(std::uint32_t modifiers)
{
    constexpr std::uint32_t NONE = 0;
    sendRequest(m_keyboard, KeyboardRequest::MODIFIERS, modifiers, NONE, NONE, NONE);
}

} // namespace Nolvex
