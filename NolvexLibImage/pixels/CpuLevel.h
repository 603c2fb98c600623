// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"

namespace Nolvex::Pixels {

/// The instructions that the conversions use. All levels give the same bytes.
enum class CpuLevel
{
    /// The instructions that every x86-64 processor has.
    SSE2,
    /// AVX2 and F16C.
    AVX2,
};

/// The highest level that the processor has and that the system lets programs use.
NOLVEXLIBIMAGE_EXPORT CpuLevel detectCpuLevel();

/// The level in use, which is the detected level unless setCpuLevel has set another.
NOLVEXLIBIMAGE_EXPORT CpuLevel cpuLevel();

/// Makes all threads use `level` from their next conversion on. Meant for tests and benchmarks. Returns false
/// and changes nothing if the processor lacks the level.
[[nodiscard]] NOLVEXLIBIMAGE_EXPORT bool setCpuLevel(CpuLevel level);

} // namespace Nolvex::Pixels
