// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace Nolvex::Tests {

/// The folder tests/data of the sources.
std::filesystem::path testData();

} // namespace Nolvex::Tests
