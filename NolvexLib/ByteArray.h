// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <new>
#include <utility>

namespace Nolvex {

/// A growable array of bytes. Growing leaves the new bytes uninitialised: memory that is never written costs
/// only addresses, and memory that is written is not set to zero before.
class ByteArray
{
public:
    using value_type = std::byte;

    ByteArray() = default;

    /// Holds `size` uninitialised bytes.
    explicit ByteArray(std::size_t size) { resize(size); }

    ByteArray(std::initializer_list<std::byte> bytes) { append(bytes.begin(), bytes.size()); }

    ~ByteArray() { std::free(m_data); }

    ByteArray(const ByteArray& other) { append(other.m_data, other.m_size); }

    ByteArray(ByteArray&& other) noexcept { swap(other); }

    ByteArray& operator=(const ByteArray& other)
    {
        ByteArray(other).swap(*this);
        return *this;
    }

    ByteArray& operator=(ByteArray&& other) noexcept
    {
        ByteArray(std::move(other)).swap(*this);
        return *this;
    }

    friend bool operator==(const ByteArray& a, const ByteArray& b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

    std::size_t size() const { return m_size; }

    std::size_t capacity() const { return m_capacity; }

    bool empty() const { return m_size == 0; }

    std::byte* data() { return m_data; }

    const std::byte* data() const { return m_data; }

    std::byte* begin() { return m_data; }

    const std::byte* begin() const { return m_data; }

    std::byte* end() { return m_data + m_size; }

    const std::byte* end() const { return m_data + m_size; }

    /// `index` must be below `size()`.
    std::byte& operator[](std::size_t index) { return m_data[index]; }

    std::byte operator[](std::size_t index) const { return m_data[index]; }

    /// Throws std::bad_alloc and changes nothing if there is not enough memory.
    void reserve(std::size_t capacity)
    {
        if (capacity <= m_capacity)
            return;
        void* const data = std::realloc(m_data, capacity);
        if (data == nullptr)
            throw std::bad_alloc();
        m_data = static_cast<std::byte*>(data);
        m_capacity = capacity;
    }

    /// Changes the size; new bytes are uninitialised. Throws std::bad_alloc as `reserve` does.
    void resize(std::size_t size)
    {
        reserve(size);
        m_size = size;
    }

    /// `bytes` must lie outside of this array.
    void append(const std::byte* bytes, std::size_t count)
    {
        if (m_size + count > m_capacity)
            reserve(std::max(m_size + count, m_capacity + m_capacity / 2));
        std::copy_n(bytes, count, m_data + m_size);
        m_size += count;
    }

    void push_back(std::byte byte) { append(&byte, 1); }

    /// Empties the array and keeps its memory for later.
    void clear() { m_size = 0; }

    void swap(ByteArray& other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }

private:
    std::byte* m_data = nullptr; // from std::realloc, which moves large blocks without copying them
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

} // namespace Nolvex
