// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// Refers to a native window without owning it: an HWND on Windows, a GtkWidget* on GTK, or null for no
/// window.
struct WindowHandle
{
    void* native = nullptr;

    friend constexpr bool operator==(const WindowHandle&, const WindowHandle&) = default;

    constexpr explicit operator bool() const { return native != nullptr; }
};

} // namespace Nolvex
