// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/Path.h"

#include "NolvexLib/platform/NativePath.h"

namespace Nolvex::Io {

Path::Path(StringView text) : m_native(Detail::nativePathFromText(text)) {}

String Path::nativeStr() const
{
    std::filesystem::path preferred = m_native;
    return Detail::textFromNativePath(preferred.make_preferred());
}

String Path::fileName(Flags<FileNameFlag> flags) const
{
    const bool withoutExtension = flags.has(FileNameFlag::WITHOUT_EXTENSION);
    return Detail::textFromNativePath(withoutExtension ? m_native.stem() : m_native.filename());
}

String Path::extension() const
{
    return Detail::textFromNativePath(m_native.extension()).getSubstr(1);
}

} // namespace Nolvex::Io
