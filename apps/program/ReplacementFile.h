// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

#include <filesystem>
#include <fstream>

namespace Nolvex::Program {

/// A new file that takes the place of another file when it is complete. Until then, and after a failure, the
/// other file stays as it was. Of a symbolic link the file that it points to is replaced.
class ReplacementFile : private Noncopyable
{
public:
    /// Creates the new file in the folder of the file that it will replace.
    explicit ReplacementFile(const Io::Path& file);

    /// Removes the new file, unless it has been committed.
    ~ReplacementFile();

    bool isOpen() const { return m_stream.is_open(); }

    /// For reading and writing in binary form.
    std::fstream& stream() { return m_stream; }

    /// Closes the new file, and gives it the name and the permissions of the old one. Returns false if the
    /// disk is full or the system refuses, and then removes the new file.
    bool commit();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::fstream m_stream;
};

} // namespace Nolvex::Program
