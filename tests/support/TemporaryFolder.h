// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/FileOutputStream.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace Nolvex::Tests {

/// An empty folder for one test, which is removed with all its content.
class TemporaryFolder : private Noncopyable
{
public:
    TemporaryFolder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("nolvex-test-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directory(m_path.native());
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path.native(), ignored);
    }

    const Io::Path& path() const { return m_path; }

    Io::Path file(StringView name) const { return m_path / name; }

    /// Makes a file with this content and returns its path.
    Io::Path file(StringView name, std::string_view content) const
    {
        Io::Path path = file(name);
        Io::FileOutputStream stream(path, Io::Open::TRUNCATE);
        stream.write(content.data(), static_cast<std::int64_t>(content.size()));
        stream.close();
        return path;
    }

private:
    Io::Path m_path;
};

} // namespace Nolvex::Tests
