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

/// Asks the processor for its properties. The eax of leaf 0 is the highest leaf.
CpuidRegisters readCpuid(std::uint32_t leaf, std::uint32_t subleaf);

/// The kinds of registers that the system saves when it switches between threads. To be called only if the
/// processor reports OSXSAVE.
std::uint64_t readXcr0();

} // namespace Nolvex::Platform
