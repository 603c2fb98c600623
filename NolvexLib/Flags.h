// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>

namespace Nolvex {

/// A set of at most 32 flags, which are the enumerators of an enumeration.
template<class Enum>
class Flags
{
public:
    constexpr Flags() = default;

    constexpr Flags(Enum flag) // NOLINT(google-explicit-constructor): a flag is the set of itself
        : m_bits(static_cast<std::uint32_t>(flag))
    {}

    constexpr Flags(std::initializer_list<Enum> flags)
    {
        for (const Enum flag : flags)
            set(flag);
    }

    static constexpr Flags fromBits(std::uint32_t bits)
    {
        Flags flags;
        flags.m_bits = bits;
        return flags;
    }

    constexpr std::uint32_t bits() const { return m_bits; }

    constexpr bool isEmpty() const { return m_bits == 0; }

    /// True if every bit of `flag` is set.
    constexpr bool has(Enum flag) const
    {
        const auto bits = static_cast<std::uint32_t>(flag);
        return (m_bits & bits) == bits;
    }

    constexpr void set(Enum flag, bool on = true)
    {
        const auto bits = static_cast<std::uint32_t>(flag);
        m_bits = on ? m_bits | bits : m_bits & ~bits;
    }

    friend constexpr bool operator==(const Flags&, const Flags&) = default;

    friend constexpr Flags operator|(Flags a, Flags b) { return fromBits(a.m_bits | b.m_bits); }

    friend constexpr Flags operator&(Flags a, Flags b) { return fromBits(a.m_bits & b.m_bits); }

    constexpr Flags& operator|=(Flags other) { return *this = *this | other; }

    constexpr Flags& operator&=(Flags other) { return *this = *this & other; }

private:
    std::uint32_t m_bits = 0;
};

} // namespace Nolvex
