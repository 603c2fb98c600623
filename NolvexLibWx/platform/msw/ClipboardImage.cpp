// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ClipboardImage.h"

#include <wx/app.h>
#include <wx/msw/wrapwin.h>
#include <wx/window.h>

#include <algorithm>

namespace Nolvex {

namespace {

HWND topWindow()
{
    const wxWindow* window = wxTheApp == nullptr ? nullptr : wxTheApp->GetTopWindow();
    return window == nullptr ? nullptr : static_cast<HWND>(window->GetHandle());
}

class OpenedClipboard
{
public:
    OpenedClipboard() : m_open(OpenClipboard(topWindow()) != FALSE) {}

    ~OpenedClipboard()
    {
        if (m_open)
            CloseClipboard();
    }

    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const { return m_open; }

private:
    bool m_open;
};

// Returns null if there is not enough memory.
HGLOBAL copyToGlobalMemory(ArrayView<const std::uint8_t> bytes)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (memory == nullptr)
        return nullptr;
    auto* to = static_cast<std::uint8_t*>(GlobalLock(memory));
    if (to == nullptr) {
        GlobalFree(memory);
        return nullptr;
    }
    std::ranges::copy(bytes, to);
    GlobalUnlock(memory);
    return memory;
}

} // namespace

bool Platform::setClipboardImage(DeviceIndependentBitmap bitmap)
{
    const OpenedClipboard clipboard;
    if (!clipboard || EmptyClipboard() == FALSE)
        return false;
    const HGLOBAL memory = copyToGlobalMemory(bitmap.bytes());
    // Windows owns the memory from here on. The program does not free it after a failure either, since
    // Windows may have used it already.
    return memory != nullptr && SetClipboardData(CF_DIB, memory) != nullptr;
}

} // namespace Nolvex
