// SPDX-License-Identifier: MIT
#include "support/ClosedFolder.h"

#include <utility>

namespace Nolvex {

// Wine does not keep the access rules of folders, so that no folder is closed.
Tests::ClosedFolder::ClosedFolder(Io::Path path) : m_path(std::move(path)) {}

Tests::ClosedFolder::~ClosedFolder() = default;

} // namespace Nolvex
