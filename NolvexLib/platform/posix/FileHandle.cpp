// SPDX-License-Identifier: MIT
#include "NolvexLib/platform/FileHandle.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Nolvex {

namespace {

int openFlags(Detail::FileMode mode)
{
    switch (mode) {
    case Detail::FileMode::READ:
        return O_RDONLY;
    case Detail::FileMode::CREATE_NEW:
        return O_WRONLY | O_CREAT | O_EXCL;
    case Detail::FileMode::TRUNCATE:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case Detail::FileMode::APPEND:
        return O_WRONLY | O_CREAT | O_APPEND;
    default:
        return O_WRONLY | O_CREAT | O_TRUNC | O_APPEND;
    }
}

const char* streamMode(int flags)
{
    if ((flags & O_WRONLY) == 0)
        return "rb";
    return (flags & O_APPEND) != 0 ? "ab" : "wb";
}

// A folder can be opened for reading; only reading it fails.
bool isFolder(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

std::FILE* closeAndFail(int descriptor, int error)
{
    ::close(descriptor);
    errno = error;
    return nullptr;
}

} // namespace

std::FILE* Detail::openFile(const std::filesystem::path& name, FileMode mode)
{
    const int flags = openFlags(mode);
    const int descriptor = ::open(name.c_str(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return nullptr;
    if (isFolder(descriptor))
        return closeAndFail(descriptor, EISDIR);
    std::FILE* const file = ::fdopen(descriptor, streamMode(flags));
    return file != nullptr ? file : closeAndFail(descriptor, errno);
}

} // namespace Nolvex
