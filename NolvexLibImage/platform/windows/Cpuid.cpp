// SPDX-License-Identifier: MIT
#include "NolvexLibImage/platform/Cpuid.h"

#include <immintrin.h>
#include <intrin.h>

namespace Nolvex {

Platform::CpuidRegisters Platform::readCpuid(std::uint32_t leaf, std::uint32_t subleaf)
{
    int registers[4] = {};
    __cpuidex(registers, static_cast<int>(leaf), static_cast<int>(subleaf));
    return {static_cast<std::uint32_t>(registers[0]), static_cast<std::uint32_t>(registers[1]),
            static_cast<std::uint32_t>(registers[2]), static_cast<std::uint32_t>(registers[3])};
}

std::uint64_t Platform::readXcr0()
{
    return _xgetbv(0);
}

} // namespace Nolvex
