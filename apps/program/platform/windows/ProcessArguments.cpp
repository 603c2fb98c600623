// SPDX-License-Identifier: MIT
#include "apps/program/platform/ProcessArguments.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <string>

namespace Nolvex::Program {

Array<Io::Path> processArguments(int /*argc*/, char** /*argv*/)
{
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> texts(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                &LocalFree);
    Array<Io::Path> arguments;
    for (int i = 1; texts && i < count; ++i)
        arguments.emplace_back(std::filesystem::path(texts.get()[i]));
    return arguments;
}

Io::Path programFile()
{
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return std::filesystem::path(name);
}

} // namespace Nolvex::Program
