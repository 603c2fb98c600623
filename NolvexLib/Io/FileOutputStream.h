// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Io/Open.h"
#include "NolvexLib/Io/Path.h"

#include <cstdio>

namespace Nolvex::Io {

/// Writes bytes to a file. The bytes are buffered: a full disk may not be noticed before `flush` or `close`.
class NOLVEXLIB_EXPORT FileOutputStream : public BinaryOutputStream
{
public:
    /// Throws Exception if the file cannot be opened, is a folder, or exists although `flags` is empty.
    FileOutputStream(const Path& path, Flags<Open> flags);

    /// Closes the file and ignores failures. Call `close` to learn of them.
    ~FileOutputStream() override;

    void flush() override;

    /// Writes the buffered bytes and closes the file, which is closed even if this function throws. Further
    /// calls do nothing; writing or flushing afterwards is a programming error (StopException).
    void close();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    std::FILE* openedFile() const;

    Path m_path;
    std::FILE* m_file;
};

} // namespace Nolvex::Io
