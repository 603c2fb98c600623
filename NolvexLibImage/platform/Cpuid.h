// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Nolvex::Platform {

struct CpuidRegisters
{
    std::uint32_t eax;
    std::uint32_t ebx;
    std::uint32_t ecx;
    std::uint32_t edx;
};

/// What the processor says about itself. The highest leaf there is, is eax of leaf 0.
CpuidRegisters readCpuid(std::uint32_t leaf, std::uint32_t subleaf);

/// Which registers the system saves when it switches between threads; only where OSXSAVE is reported.
std::uint64_t readXcr0();

} // namespace Nolvex::Platform
