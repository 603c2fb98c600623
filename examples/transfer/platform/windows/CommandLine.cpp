// SPDX-License-Identifier: MIT
#include "examples/transfer/platform/CommandLine.h"

#include <filesystem>
#include <memory>

#include <windows.h>

#include <shellapi.h>

std::vector<std::wstring> commandLineArguments(int /*argc*/, char** /*argv*/)
{
    // The arguments of main() are in a code page, which lacks many characters.
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                &LocalFree);
    return words == nullptr ? std::vector<std::wstring>()
                            : std::vector<std::wstring>(words.get(), words.get() + count);
}

Nolvex::Io::Path pathOfArgument(const std::wstring& argument)
{
    return std::filesystem::path(argument);
}
