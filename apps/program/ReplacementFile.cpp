// SPDX-License-Identifier: MIT
#include "apps/program/ReplacementFile.h"

#include <random>
#include <string>
#include <system_error>

namespace Nolvex::Program {

namespace {

namespace fs = std::filesystem;

fs::path withoutLinks(const fs::path& file)
{
    std::error_code failure;
    fs::path target = fs::weakly_canonical(file, failure);
    return failure ? file : target;
}

// The name must be new, and must not say what the program is writing, so that no other program takes the file
// for a picture.
fs::path temporaryNameFor(const fs::path& target)
{
    std::random_device random;
    fs::path name = target;
    name += ".";
    name += std::to_string(random());
    name += ".part";
    return name;
}

bool isReplaceable(const fs::path& target)
{
    std::error_code failure;
    const fs::file_status status = fs::status(target, failure);
    return !fs::exists(status) || fs::is_regular_file(status);
}

} // namespace

ReplacementFile::ReplacementFile(const Io::Path& file)
    : m_target(withoutLinks(file.native())), m_temporary(temporaryNameFor(m_target))
{
    std::error_code failure;
    if (isReplaceable(m_target) && !fs::exists(m_temporary, failure))
        m_stream.open(m_temporary, std::ios::in | std::ios::out | std::ios::trunc | std::ios::binary);
    if (!m_stream.is_open())
        m_temporary.clear(); // whatever has this name is not ours
}

ReplacementFile::~ReplacementFile()
{
    std::error_code ignored;
    m_stream.close();
    if (!m_temporary.empty())
        fs::remove(m_temporary, ignored);
}

bool ReplacementFile::commit()
{
    m_stream.flush();
    const bool isWritten = m_stream.good();
    m_stream.close();
    if (!isWritten || m_stream.fail())
        return false;
    std::error_code failure;
    const fs::file_status old = fs::status(m_target, failure);
    if (fs::exists(old))
        fs::permissions(m_temporary, old.permissions(), failure);
    fs::rename(m_temporary, m_target, failure);
    if (failure)
        return false;
    m_temporary.clear();
    return true;
}

} // namespace Nolvex::Program
