// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/EnvironmentVariable.h"

#include <windows.h>

#include <string>

namespace Nolvex {

String Detail::environmentVariable(const char* name)
{
    const String wideName = String::fromAscii(name);
    std::wstring value;
    // The variable may change between two calls. Windows counts the final zero only if the value does not
    // fit.
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
