// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"

#include <cstdint>

namespace Nolvex::Viewer {

/// How the reading of the pixels ended.
enum class ReadOutcome
{
    DONE,
    STOPPED, // by the progress
    DAMAGED,
};

/// Returns the reason why a picture was not read, as the rest of a sentence.
Unexpected<String> readFailure(ReadOutcome outcome);

/// Deflate makes at most so many bytes of one. A file that claims more pixels than that is refused before
/// memory is allocated for them.
inline constexpr std::uint64_t MAX_INFLATION = 1032;

} // namespace Nolvex::Viewer
