// SPDX-License-Identifier: MIT
#include "support/ErrorStream.h"

#include <windows.h>

#include <chrono>
#include <future>
#include <thread>

namespace Nolvex::Tests {

namespace {

// The number that MessageBox gives to the control with the text.
constexpr int TEXT_CONTROL = 0xffff;

String textOf(HWND window)
{
    wchar_t text[1000] = {};
    GetWindowTextW(window, text, 1000);
    return text;
}

MessageBoxTexts readAndClose(const std::wstring& title)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::seconds(10);
    while (Clock::now() < end) {
        const HWND box = FindWindowW(L"#32770", title.c_str());
        const HWND message = box == nullptr ? nullptr : GetDlgItem(box, TEXT_CONTROL);
        if (message != nullptr && IsWindowVisible(box) != FALSE) {
            MessageBoxTexts texts{textOf(box), textOf(message)};
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return texts;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return {};
}

} // namespace

Optional<MessageBoxTexts> withoutErrorStream(const char* title, const std::function<void()>& function)
{
    const HANDLE kept = GetStdHandle(STD_ERROR_HANDLE);
    std::future<MessageBoxTexts> texts =
        std::async(std::launch::async, readAndClose, std::wstring(String::fromUtf8(title).c_str()));
    SetStdHandle(STD_ERROR_HANDLE, nullptr);
    function();
    SetStdHandle(STD_ERROR_HANDLE, kept);
    return texts.get();
}

} // namespace Nolvex::Tests
