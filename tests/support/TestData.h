// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace Nolvex::Tests {

/// Returns the folder tests/data of the sources.
std::filesystem::path testData();

} // namespace Nolvex::Tests
