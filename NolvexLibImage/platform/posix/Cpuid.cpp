// SPDX-License-Identifier: MIT
#include "NolvexLibImage/platform/Cpuid.h"

#include <cpuid.h>
#include <immintrin.h>

namespace Nolvex {

Platform::CpuidRegisters Platform::readCpuid(std::uint32_t leaf, std::uint32_t subleaf)
{
    CpuidRegisters registers{};
    __cpuid_count(leaf, subleaf, registers.eax, registers.ebx, registers.ecx, registers.edx);
    return registers;
}

std::uint64_t Platform::readXcr0()
{
    return _xgetbv(0);
}

} // namespace Nolvex
