// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// libFuzzer calls this function with every input, and each target defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Nolvex::Fuzz {

inline std::string_view asText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program, and so reports the input, when a property does not hold.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace Nolvex::Fuzz
