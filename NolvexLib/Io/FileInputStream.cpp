// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileInputStream.h"

#include "NolvexLib/Io/detail/FileError.h"

#include <cerrno>

namespace Nolvex::Io {

FileInputStream::FileInputStream(const Path& path)
    : m_path(path), m_file(Detail::openFileOrThrow(path, Detail::FileMode::READ))
{}

FileInputStream::~FileInputStream()
{
    std::fclose(m_file);
}

std::int64_t FileInputStream::readImpl(void* buffer, std::int64_t count)
{
    const auto size = static_cast<std::size_t>(count);
    const std::size_t done = std::fread(buffer, 1, size, m_file);
    if (done < size)
        throwIfFailed();
    return static_cast<std::int64_t>(done);
}

bool FileInputStream::eofImpl()
{
    const int next = std::getc(m_file);
    if (next == EOF) {
        throwIfFailed();
        return true;
    }
    std::ungetc(next, m_file);
    return false;
}

void FileInputStream::throwIfFailed() const
{
    const int error = errno;
    if (std::ferror(m_file) != 0)
        Detail::throwFileError(m_path, "cannot be read", error);
}

} // namespace Nolvex::Io
