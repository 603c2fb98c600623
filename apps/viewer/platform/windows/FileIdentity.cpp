// SPDX-License-Identifier: MIT
#include "apps/viewer/platform/FileIdentity.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <type_traits>

#include <windows.h>

namespace Nolvex::Viewer::Platform {

namespace {

struct HandleCloser
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using OpenFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

// Opens the file for questions about its name only, which programs that have it open cannot forbid.
OpenFile openForName(const std::filesystem::path& file)
{
    const HANDLE handle = CreateFileW(file.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    return OpenFile(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

} // namespace

Io::Path identityOf(const Io::Path& file)
{
    std::error_code failure;
    std::filesystem::path whole = std::filesystem::absolute(file.native(), failure).lexically_normal();
    if (failure)
        whole = file.native();
    const OpenFile open = openForName(whole);
    if (!open)
        return whole;
    constexpr DWORD MAX_LENGTH = 32768;
    std::wstring name(MAX_LENGTH, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(open.get(), name.data(), MAX_LENGTH, FILE_NAME_NORMALIZED);
    if (length == 0 || length >= MAX_LENGTH)
        return whole;
    name.resize(length);
    return std::filesystem::path(name);
}

} // namespace Nolvex::Viewer::Platform
