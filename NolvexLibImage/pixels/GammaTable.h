// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/pixels/kernels/KernelTable.h"

#include "NolvexLib/Array.h"

#include <cstdint>
#include <memory>

namespace Nolvex::Pixels {

/// The byte of `value` raised to `exponent`, through powf itself.
std::uint8_t encodePower(float value, float exponent);

/// What a GammaEncoder looks up instead of calling powf.
struct GammaTable
{
    GammaTable() = default;
    GammaTable(const GammaTable&) = delete;
    GammaTable& operator=(const GammaTable&) = delete;

    /// Null when a table cannot stand in for powf: the exponent is not an ordinary one, or the powf of this
    /// system takes a step back near a place where the byte changes.
    static std::unique_ptr<const GammaTable> make(float exponent);

    Array<std::uint32_t> entries;
    /// Points into `entries`.
    Detail::GammaLookup lookup{};
};

} // namespace Nolvex::Pixels
