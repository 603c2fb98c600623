// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Io/Open.h"
#include "NolvexLib/Io/Path.h"

#include <cstdio>

namespace Nolvex::Io {

/// Bytes into a file. They are held back for a while: a full disk may show as late as in `flush` or `close`.
class NOLVEXLIB_EXPORT FileOutputStream : public BinaryOutputStream
{
public:
    /// Exception when the file cannot be opened, is a folder, or is there although no flag allows that.
    FileOutputStream(const Path& path, Flags<Open> flags);

    /// Closes the file and says nothing about failures: call `close` to learn of them.
    ~FileOutputStream() override;

    void flush() override;

    /// Writes what was held back and closes the file, which is closed even when this raises. Further calls do
    /// nothing; writing or flushing afterwards is a programming error (StopException).
    void close();

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    std::FILE* openedFile() const;

    Path m_path;
    std::FILE* m_file;
};

} // namespace Nolvex::Io
