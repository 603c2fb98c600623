// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// A native window, passed by value and owned by nobody here: an HWND on Windows, a GtkWidget* on GTK; null
/// for none.
struct WindowHandle
{
    void* native = nullptr;

    friend constexpr bool operator==(const WindowHandle&, const WindowHandle&) = default;

    constexpr explicit operator bool() const { return native != nullptr; }
};

} // namespace Nolvex
