// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryInputStream.h"
#include "NolvexLib/Io/Path.h"

#include <cstdio>

namespace Nolvex::Io {

/// Reads the bytes of a file.
class NOLVEXLIB_EXPORT FileInputStream : public BinaryInputStream
{
public:
    /// Throws Exception if the file cannot be opened or is a folder.
    explicit FileInputStream(const Path& path);
    ~FileInputStream() override;

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    void throwIfFailed() const;

    Path m_path;
    std::FILE* m_file;
};

} // namespace Nolvex::Io
