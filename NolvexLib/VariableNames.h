// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex {

/// Whether a simple text has names for its values: `name=value`, or `value` alone.
enum class VariableNames
{
    WRITE = 0,
    OMIT = 1,
};

} // namespace Nolvex
