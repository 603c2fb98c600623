// SPDX-License-Identifier: MIT
#include "support/ClipboardReading.h"

#include "support/ClipboardCopying.h"
#include "support/Events.h"

#include <wx/mstream.h>
#include <wx/msw/wrapwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <future>
#include <memory>
#include <string>
#include <thread>

namespace Nolvex {

namespace {

constexpr char READ_ARGUMENT[] = "--read-clipboard";

constexpr int NOT_THERE = 3;

struct CloseHandleOf
{
    using pointer = HANDLE;

    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

// Sends the bytes to the parent process through the standard output.
bool writeOut(const std::uint8_t* bytes, std::size_t size)
{
    constexpr std::size_t PIECE = std::size_t(1) << 20;
    for (DWORD written = 0; size > 0; bytes += written, size -= written) {
        const auto count = static_cast<DWORD>(std::min(size, PIECE));
        if (WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes, count, &written, nullptr) == FALSE)
            return false;
    }
    return true;
}

int printClipboard(UINT format)
{
    if (OpenClipboard(nullptr) == FALSE)
        return 1;
    int status = NOT_THERE;
    if (const HANDLE memory = GetClipboardData(format)) {
        status = writeOut(static_cast<const std::uint8_t*>(GlobalLock(memory)), GlobalSize(memory)) ? 0 : 1;
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return status;
}

// Returns the command that starts this program with an argument and its value, both in ASCII.
std::wstring commandOf(const std::string& argument, const std::string& value)
{
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return L'"' + std::wstring(program) + L"\" " + std::wstring(argument.begin(), argument.end()) + L' ' +
           std::wstring(value.begin(), value.end());
}

// Starts the command, whose output goes into the pipe.
Handle start(std::wstring command, HANDLE output)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &process) == FALSE)
        return {};
    CloseHandle(process.hThread);
    return Handle(process.hProcess);
}

Array<std::uint8_t> readAll(HANDLE pipe)
{
    Array<std::uint8_t> bytes;
    std::uint8_t buffer[65536];
    DWORD count = 0;
    while (ReadFile(pipe, buffer, sizeof buffer, &count, nullptr) != FALSE && count > 0)
        bytes.insert(bytes.end(), buffer, buffer + count);
    return bytes;
}

// Another program reads the clipboard, since a picture that only this process could see would not have been
// copied.
Array<std::uint8_t> readClipboard(UINT format)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (CreatePipe(&readEnd, &writeEnd, &inherited, 0) == FALSE)
        return {};
    const Handle from(readEnd);
    Handle to(writeEnd);
    SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    const Handle process = start(commandOf(READ_ARGUMENT, std::to_string(format)), writeEnd);
    to.reset();
    if (!process)
        return {};
    // Events are processed meanwhile, because the other program may ask this process for the clipboard's
    // content.
    std::future<Array<std::uint8_t>> output = std::async(std::launch::async, readAll, readEnd);
    const auto ready = [&] { return output.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
    if (!Tests::pumpUntil(ready, 30000))
        TerminateProcess(process.get(), 1);
    Array<std::uint8_t> bytes = output.get();
    WaitForSingleObject(process.get(), INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process.get(), &status);
    return status == 0 ? bytes : Array<std::uint8_t>();
}

using Hold = std::function<bool(HWND window, const std::function<void()>& wait)>;

// Calls `copy` while another thread is inside `hold` and waits there. If `hold` did not succeed, the test
// fails.
bool besideHolder(const std::function<bool()>& copy, const Hold& hold)
{
    std::promise<void> waiting;
    std::promise<void> release;
    bool held = false;
    std::thread holder([&, released = release.get_future()] {
        const HWND window =
            CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        held = hold(window, [&] {
            waiting.set_value();
            released.wait();
        });
        DestroyWindow(window);
    });
    waiting.get_future().wait();
    const bool result = copy();
    release.set_value();
    holder.join();
    EXPECT_TRUE(held) << "nothing was held";
    return result;
}

} // namespace

Optional<int> Tests::useClipboardForParent(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], COPY_ARGUMENT) == 0)
        return copyAndEnd(argv[2]);
    if (argc != 3 || std::strcmp(argv[1], READ_ARGUMENT) != 0)
        return {};
    return printClipboard(static_cast<UINT>(std::strtoul(argv[2], nullptr, 10)));
}

Optional<String> Tests::clipboardText()
{
    const Array<std::uint8_t> bytes = readClipboard(CF_UNICODETEXT);
    if (bytes.empty())
        return {};
    // The text on the clipboard ends with a zero character.
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
    // wxWidgets decodes BMP files with a file header, of which it reads only the first letters and the offset
    // of the pixels.
    Array<std::uint8_t> file{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0};
    file.insert(file.end(), bytes.begin(), bytes.end());
    wxMemoryInputStream stream(file.data(), file.size());
    return {{"CF_DIB", wxImage(stream, wxBITMAP_TYPE_BMP)}};
}

bool Tests::whileClipboardIsTaken(const std::function<bool()>& copy)
{
    return besideHolder(copy, [](HWND window, const std::function<void()>& wait) {
        const bool open = OpenClipboard(window) != FALSE;
        wait();
        CloseClipboard();
        return open;
    });
}

bool Tests::afterCopyingProgramEnded(const char* what, const std::function<void()>& read)
{
    const Handle process = start(commandOf(COPY_ARGUMENT, what), GetStdHandle(STD_OUTPUT_HANDLE));
    if (!process)
        return false;
    const auto ended = [&] { return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0; };
    if (!pumpUntil(ended, 60000))
        TerminateProcess(process.get(), 1);
    DWORD status = 1;
    GetExitCodeProcess(process.get(), &status);
    read();
    return status == 0;
}

bool Tests::whileClipboardOwnerIsSilent(const std::function<bool()>& copy)
{
    return besideHolder(copy, [](HWND window, const std::function<void()>& wait) {
        // Null instead of data promises the text for later. Windows asks for promised data by a message,
        // which this thread does not process while it waits.
        const bool owned = OpenClipboard(window) != FALSE && EmptyClipboard() != FALSE;
        SetClipboardData(CF_UNICODETEXT, nullptr);
        CloseClipboard();
        wait();
        return owned;
    });
}

} // namespace Nolvex
