// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "NolvexLib/WindowHandle.h"

namespace Nolvex::Tests {

/// A shown top-level window that is made by GTK or Windows without wxWidgets, as the windows of a host are.
/// It contains one text field, which has the focus.
class NativeTestWindow : private Noncopyable
{
public:
    /// Returns when the window is on the screen.
    NativeTestWindow();
    ~NativeTestWindow();

    /// Destroys the window before its time.
    void destroy();

    WindowHandle handle() const { return m_window; }

    /// The text field in the window.
    WindowHandle field() const { return m_field; }

    bool isAlive() const;

    /// False if the window or its field takes no input.
    bool isEnabled() const;

    /// True if the window is active and its field has the focus.
    bool hasFocus() const;

    /// The text that has been typed into the field.
    String text() const;

    /// The screen rectangle, with the frame.
    Bucket region() const;

private:
    bool takesFocusForGood() const;

    WindowHandle m_window;
    WindowHandle m_field;
};

} // namespace Nolvex::Tests
