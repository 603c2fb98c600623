// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/CpuLevel.h"

#include "NolvexLibImage/pixels/kernels/KernelTable.h"
#include "NolvexLibImage/platform/Cpuid.h"

#include "NolvexLib/StopException.h"

#include <atomic>

namespace Nolvex::Pixels {

namespace {

constexpr Detail::KernelTable SSE2_KERNELS = {Detail::SSE2_TO_BYTES, Detail::SSE2_TO_FLOATS};
constexpr Detail::KernelTable AVX2_KERNELS = {Detail::AVX2_TO_BYTES, Detail::AVX2_TO_FLOATS};

constinit std::atomic<const Detail::KernelTable*> KERNELS = nullptr;

bool hasBits(std::uint32_t value, std::uint32_t bits)
{
    return (value & bits) == bits;
}

bool hasAvx2()
{
    constexpr std::uint32_t LEAF_1_ECX = 1U << 27 | 1U << 28 | 1U << 29; // OSXSAVE, AVX, F16C
    constexpr std::uint32_t LEAF_7_EBX = 1U << 5;                        // AVX2
    constexpr std::uint64_t XMM_AND_YMM = 0x6; // the system saves both kinds of registers
    return Platform::readCpuid(0, 0).eax >= 7 && hasBits(Platform::readCpuid(1, 0).ecx, LEAF_1_ECX) &&
           (Platform::readXcr0() & XMM_AND_YMM) == XMM_AND_YMM &&
           hasBits(Platform::readCpuid(7, 0).ebx, LEAF_7_EBX);
}

const Detail::KernelTable& kernelsOf(CpuLevel level)
{
    switch (level) {
    case CpuLevel::SSE2:
        return SSE2_KERNELS;
    case CpuLevel::AVX2:
        return AVX2_KERNELS;
    }
    Nolvex::Detail::throwStopException("pixels/CpuLevel", __LINE__);
}

} // namespace

CpuLevel detectCpuLevel()
{
    return hasAvx2() ? CpuLevel::AVX2 : CpuLevel::SSE2;
}

CpuLevel cpuLevel()
{
    return &Detail::activeKernels() == &AVX2_KERNELS ? CpuLevel::AVX2 : CpuLevel::SSE2;
}

bool setCpuLevel(CpuLevel level)
{
    const Detail::KernelTable& kernels = kernelsOf(level);
    if (level > detectCpuLevel())
        return false;
    KERNELS.store(&kernels, std::memory_order_release);
    return true;
}

const Detail::KernelTable& Detail::activeKernels()
{
    if (const KernelTable* kernels = KERNELS.load(std::memory_order_acquire))
        return *kernels;
    // Several threads may get here at once, and a level that another thread has set meanwhile must stay.
    const KernelTable* expected = nullptr;
    const KernelTable* detected = &kernelsOf(detectCpuLevel());
    return KERNELS.compare_exchange_strong(expected, detected) ? *detected : *expected;
}

} // namespace Nolvex::Pixels
