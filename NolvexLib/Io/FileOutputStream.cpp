// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileOutputStream.h"

#include "NolvexLib/Io/detail/FileError.h"
#include "NolvexLib/StopException.h"

#include <cerrno>
#include <utility>

namespace Nolvex::Io {

namespace {

constexpr char WRITE_FAILURE[] = "cannot be written";

Detail::FileMode modeOf(Flags<Open> flags)
{
    const bool truncate = flags.has(Open::TRUNCATE);
    if (flags.has(Open::APPEND))
        return truncate ? Detail::FileMode::TRUNCATE_AND_APPEND : Detail::FileMode::APPEND;
    return truncate ? Detail::FileMode::TRUNCATE : Detail::FileMode::CREATE_NEW;
}

} // namespace

FileOutputStream::FileOutputStream(const Path& path, Flags<Open> flags)
    : m_path(path), m_file(Detail::openFileOrThrow(path, modeOf(flags)))
{}

FileOutputStream::~FileOutputStream()
{
    if (m_file != nullptr)
        std::fclose(m_file);
}

void FileOutputStream::flush()
{
    if (std::fflush(openedFile()) != 0)
        Detail::throwFileError(m_path, WRITE_FAILURE, errno);
}

void FileOutputStream::close()
{
    std::FILE* const file = std::exchange(m_file, nullptr);
    if (file == nullptr)
        return;
    // Bytes that an earlier write lost are not reported by fclose.
    const bool failedBefore = std::ferror(file) != 0;
    errno = EIO;
    if (std::fclose(file) != 0 || failedBefore)
        Detail::throwFileError(m_path, WRITE_FAILURE, errno);
}

void FileOutputStream::writeImpl(const void* buffer, std::int64_t count)
{
    const auto size = static_cast<std::size_t>(count);
    if (std::fwrite(buffer, 1, size, openedFile()) != size)
        Detail::throwFileError(m_path, WRITE_FAILURE, errno);
}

std::FILE* FileOutputStream::openedFile() const
{
    if (m_file == nullptr)
        Detail::throwStopException("Io/FileOutputStream", __LINE__);
    return m_file;
}

} // namespace Nolvex::Io
