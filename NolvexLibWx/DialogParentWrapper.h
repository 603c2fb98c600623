// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/Export.h"

#include <wx/window.h>

#include <memory>

namespace Nolvex::Platform {
class WindowWatch;
} // namespace Nolvex::Platform

namespace Nolvex::Wx {

/// Stands for a window that wxWidgets did not create, so that dialogs of wxWidgets can have that window as
/// their parent.
///
/// The wrapper takes over the native handle and creates no window of its own. The native window keeps its
/// owner and its behaviour, and the destructor leaves it alone. The wrapper must outlive the dialogs whose
/// parent it is; create both on the stack, the wrapper first.
///
/// GTK needs the handle of a top-level window, not of a widget inside a window, and wxGTK must not be given a
/// wrapper without a window as a parent. On Windows, a dialog whose wrapper has no window has no owner, and
/// the owner of a dialog whose wrapper has a child window is the top-level window around that child.
///
/// On GTK, GetHandle() returns null once the native window has been destroyed. On Windows the handle stays,
/// and Windows ignores it. Wrappers belong to the main thread.
class NOLVEXLIBWX_EXPORT DialogParentWrapper : public wxWindow
{
public:
    /// Null is allowed.
    explicit DialogParentWrapper(WindowHandle window);
    ~DialogParentWrapper() override;

    /// Returns true: wxWidgets looks for the top-level window of a parent, and the wrapper stands for one.
    bool IsTopLevel() const override { return true; }

private:
    // The member of wxWindow for the handle differs between the systems.
    void setNativeHandle(WindowHandle window);

    std::unique_ptr<Platform::WindowWatch> m_watch;
};

} // namespace Nolvex::Wx
