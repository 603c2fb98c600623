// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Decoding {

/// Reads whole numbers from bytes. A read past the end returns 0, and `ranOut` then returns true.
class ByteReader
{
public:
    explicit ByteReader(ArrayView<const std::byte> bytes, std::size_t position = 0,
                        std::endian order = std::endian::little)
        : m_bytes(bytes), m_position(position), m_order(order)
    {}

    std::uint32_t read8() { return static_cast<std::uint32_t>(read(1)); }

    std::uint32_t read16() { return static_cast<std::uint32_t>(read(2)); }

    std::uint32_t read32() { return static_cast<std::uint32_t>(read(4)); }

    /// Reads a number of 1 to 8 bytes.
    std::uint64_t read(std::size_t size)
    {
        if (size > left()) {
            m_ranOut = true;
            m_position = m_bytes.size();
            return 0;
        }
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t place = m_order == std::endian::little ? size - 1 - i : i;
            value = value << 8 | std::to_integer<std::uint64_t>(m_bytes[m_position + place]);
        }
        m_position += size;
        return value;
    }

    void skip(std::size_t count)
    {
        m_ranOut = m_ranOut || count > left();
        m_position = count > left() ? m_bytes.size() : m_position + count;
    }

    std::size_t position() const { return m_position; }

    std::size_t left() const { return m_position < m_bytes.size() ? m_bytes.size() - m_position : 0; }

    bool ranOut() const { return m_ranOut; }

private:
    ArrayView<const std::byte> m_bytes;
    std::size_t m_position;
    std::endian m_order;
    bool m_ranOut = false;
};

} // namespace Nolvex::Decoding
