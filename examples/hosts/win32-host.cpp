// SPDX-License-Identifier: MIT
// A Windows program with a message loop of its own that opens a window of the library. With a number of
// milliseconds on the command line, the program ends by itself.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "examples/hosts/LibraryWindow.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr UINT_PTR EVENTS_TIMER = 1;
constexpr UINT_PTR END_TIMER = 2;
constexpr UINT EVENTS_INTERVAL_MS = 20;

LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_COMMAND)
        openLibraryWindow();
    else if (message == WM_TIMER && first == EVENTS_TIMER)
        Nolvex::LibWx::processAllPendingEvents();
    else if (message == WM_DESTROY || (message == WM_TIMER && first == END_TIMER))
        PostQuitMessage(0);
    else
        return DefWindowProcW(window, message, first, second);
    return 0;
}

HWND makeWindow()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = onMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"Host";
    RegisterClassW(&windowClass);
    HWND window = CreateWindowW(L"Host", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                                CW_USEDEFAULT, 320, 120, nullptr, nullptr, windowClass.hInstance, nullptr);
    CreateWindowW(L"BUTTON", L"Open a window of the library", WS_CHILD | WS_VISIBLE, 10, 10, 240, 30, window,
                  nullptr, windowClass.hInstance, nullptr);
    return window;
}

void runHost(UINT endAfterMs)
{
    HWND window = makeWindow();
    SetTimer(window, EVENTS_TIMER, EVENTS_INTERVAL_MS, nullptr);
    if (endAfterMs > 0) {
        openLibraryWindow();
        SetTimer(window, END_TIMER, endAfterMs, nullptr);
    }
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(window, EVENTS_TIMER);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        Nolvex::LibWx::startup(Nolvex::LibWx::ApplicationType::PLUGIN);
    } catch (const Nolvex::Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
    runHost(argc > 1 ? static_cast<UINT>(std::strtoul(argv[1], nullptr, 10)) : 0);
    closeLibraryWindow();
    Nolvex::LibWx::shutdown();
    return EXIT_SUCCESS;
}
