// SPDX-License-Identifier: MIT
#pragma once

#include "../AtEachLevel.h"
#include "NolvexLibImage/pixels/kernels/KernelTable.h"

namespace Nolvex::Pixels::Detail {

/// A fixture for tests of the kernels themselves.
class AtEachKernelTable : public AtEachLevel
{
protected:
    static const ToBytesKernels& toBytes()
    {
        return GetParam() == CpuLevel::SSE2 ? SSE2_TO_BYTES : AVX2_TO_BYTES;
    }

    static const ToFloatsKernels& toFloats()
    {
        return GetParam() == CpuLevel::SSE2 ? SSE2_TO_FLOATS : AVX2_TO_FLOATS;
    }
};

} // namespace Nolvex::Pixels::Detail
