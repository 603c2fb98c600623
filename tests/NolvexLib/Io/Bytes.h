// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryInputStream.h"
#include "NolvexLib/Io/BinaryOutputStream.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace Nolvex::Tests {

inline Array<std::byte> bytesOf(std::string_view text)
{
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

inline std::string textOf(ArrayView<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Returns the rest of the stream, read in pieces of `pieceSize` bytes.
inline std::string readAll(Io::BinaryInputStream& stream, std::int64_t pieceSize = 65536)
{
    std::string text;
    std::string piece(static_cast<std::size_t>(pieceSize), '\0');
    for (std::int64_t count = stream.read(piece.data(), pieceSize); count > 0;
         count = stream.read(piece.data(), pieceSize))
        text.append(piece, 0, static_cast<std::size_t>(count));
    return text;
}

inline void writeText(Io::BinaryOutputStream& stream, std::string_view text)
{
    stream.write(text.data(), static_cast<std::int64_t>(text.size()));
}

/// Returns bytes without any pattern, the same bytes in each run.
inline std::string incompressibleText(std::size_t size)
{
    std::mt19937 random(12345);
    std::string text(size, '\0');
    for (char& c : text)
        c = static_cast<char>(random() & 0xFF);
    return text;
}

} // namespace Nolvex::Tests
