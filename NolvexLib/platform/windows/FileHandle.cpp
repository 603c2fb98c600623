// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/FileHandle.h"

#include <cerrno>

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

namespace Nolvex {

namespace {

int openFlags(Detail::FileMode mode)
{
    switch (mode) {
    case Detail::FileMode::READ:
        return _O_RDONLY;
    case Detail::FileMode::CREATE_NEW:
        return _O_WRONLY | _O_CREAT | _O_EXCL;
    case Detail::FileMode::TRUNCATE:
        return _O_WRONLY | _O_CREAT | _O_TRUNC;
    case Detail::FileMode::APPEND:
        return _O_WRONLY | _O_CREAT | _O_APPEND;
    default:
        return _O_WRONLY | _O_CREAT | _O_TRUNC | _O_APPEND;
    }
}

const char* streamMode(int flags)
{
    if ((flags & _O_WRONLY) == 0)
        return "rb";
    return (flags & _O_APPEND) != 0 ? "ab" : "wb";
}

} // namespace

std::FILE* Detail::openFile(const std::filesystem::path& name, FileMode mode)
{
    const int flags = openFlags(mode);
    int descriptor = -1;
    const int error = ::_wsopen_s(&descriptor, name.c_str(), flags | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
                                  _S_IREAD | _S_IWRITE);
    if (error != 0) {
        errno = error;
        return nullptr;
    }
    std::FILE* const file = ::_fdopen(descriptor, streamMode(flags));
    if (file == nullptr)
        ::_close(descriptor);
    return file;
}

} // namespace Nolvex
