// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/EnvironmentVariable.h"

#include <windows.h>

#include <string>

namespace Nolvex {

String Detail::environmentVariable(const char* name)
{
    const String wideName = String::fromAscii(name);
    std::wstring value;
    // The length, with its final zero as long as it does not fit, may change between the calls.
    for (DWORD length = 1; length > value.size();) {
        value.resize(length);
        length = ::GetEnvironmentVariableW(wideName.c_str(), value.data(), length);
        if (length < value.size()) {
            value.resize(length);
            break;
        }
    }
    return value;
}

} // namespace Nolvex
