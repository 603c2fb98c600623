// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/NativePath.h"

#include <string>

namespace Nolvex {

std::filesystem::path Detail::nativePathFromText(StringView text)
{
    return std::wstring(text.view());
}

String Detail::textFromNativePath(const std::filesystem::path& native)
{
    return native.native();
}

} // namespace Nolvex
