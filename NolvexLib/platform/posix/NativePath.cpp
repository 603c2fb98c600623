// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/NativePath.h"

namespace Nolvex {

std::filesystem::path Detail::nativePathFromText(StringView text)
{
    return text.toUtf8();
}

String Detail::textFromNativePath(const std::filesystem::path& native)
{
    return String::fromUtf8(native.native());
}

} // namespace Nolvex
