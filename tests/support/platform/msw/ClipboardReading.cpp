// SPDX-License-Identifier: MIT
#include "support/ClipboardReading.h"

#include <wx/mstream.h>
#include <wx/msw/wrapwin.h>

#include <future>
#include <thread>

namespace Nolvex {

namespace {

Array<std::uint8_t> readClipboard(UINT format)
{
    if (OpenClipboard(nullptr) == FALSE)
        return {};
    Array<std::uint8_t> bytes;
    if (const HANDLE memory = GetClipboardData(format)) {
        const auto* from = static_cast<const std::uint8_t*>(GlobalLock(memory));
        bytes.assign(from, from + GlobalSize(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return bytes;
}

} // namespace

Optional<String> Tests::clipboardText()
{
    const Array<std::uint8_t> bytes = readClipboard(CF_UNICODETEXT);
    if (bytes.empty())
        return {};
    // Ends with a zero character.
    return String(reinterpret_cast<const wchar_t*>(bytes.data()));
}

Array<std::uint8_t> Tests::clipboardBitmap()
{
    return readClipboard(CF_DIB);
}

std::map<std::string, wxImage> Tests::clipboardPictures()
{
    const Array<std::uint8_t> bytes = readClipboard(CF_DIB);
    if (bytes.empty())
        return {{"CF_DIB", wxImage()}};
    // A file header, of which readers use the first letters and the place of the pixels only.
    Array<std::uint8_t> file{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0};
    file.insert(file.end(), bytes.begin(), bytes.end());
    wxMemoryInputStream stream(file.data(), file.size());
    return {{"CF_DIB", wxImage(stream, wxBITMAP_TYPE_BMP)}};
}

bool Tests::whileClipboardIsTaken(const std::function<bool()>& copy)
{
    std::promise<bool> taken;
    std::promise<void> release;
    std::thread holder([&, released = release.get_future()] {
        const HWND window =
            CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        taken.set_value(OpenClipboard(window) != FALSE);
        released.wait();
        CloseClipboard();
        DestroyWindow(window);
    });
    // Not held means that nothing is shown by a refusal.
    const bool result = !taken.get_future().get() || copy();
    release.set_value();
    holder.join();
    return result;
}

} // namespace Nolvex
