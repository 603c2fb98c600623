// SPDX-License-Identifier: MIT
#include "support/ClosedFolder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Nolvex {

namespace {

constexpr uid_t OTHER_USER = 65534; // an account without rights to the folder

} // namespace

Tests::ClosedFolder::ClosedFolder(Io::Path path) : m_path(std::move(path))
{
    std::filesystem::create_directory(m_path.native());
    std::filesystem::permissions(m_path.native(), std::filesystem::perms::none);
    m_wasSuperuser = geteuid() == 0 && seteuid(OTHER_USER) == 0;
    std::error_code error;
    const std::filesystem::directory_iterator entries(m_path.native(), error);
    m_closed = static_cast<bool>(error);
}

Tests::ClosedFolder::~ClosedFolder()
{
    if (m_wasSuperuser && seteuid(0) != 0)
        std::abort(); // the other tests would fail as another user
    std::filesystem::permissions(m_path.native(), std::filesystem::perms::owner_all);
}

} // namespace Nolvex
