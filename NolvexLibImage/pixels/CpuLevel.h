// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/Export.h"

namespace Nolvex::Pixels {

/// Which instructions the conversions use. All levels give the same bytes.
enum class CpuLevel
{
    /// What every x86-64 processor has.
    SSE2,
    /// AVX2 and F16C.
    AVX2,
};

/// The highest level that the processor has and the system lets programs use.
NOLVEXLIBIMAGE_EXPORT CpuLevel detectCpuLevel();

/// The level in use: the detected one unless another was set.
NOLVEXLIBIMAGE_EXPORT CpuLevel cpuLevel();

/// Uses `level` from the next call of a conversion on, in all threads: for tests and benchmarks. Returns
/// false, and changes nothing, when the processor lacks the level.
[[nodiscard]] NOLVEXLIBIMAGE_EXPORT bool setCpuLevel(CpuLevel level);

} // namespace Nolvex::Pixels
