// SPDX-License-Identifier: MIT
#pragma once

#include "Bytes.h"
#include "NolvexLib/Io/DeflateInputStream.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Tests {

/// Returns lines that resemble each other as the lines of a document do.
inline std::string documentText(std::size_t size)
{
    std::string text;
    for (std::size_t i = 0; text.size() < size; ++i)
        text += "entry " + std::to_string(i * 7919 % 100003) + " of the list, state " +
                std::to_string(i % 5) + "\n";
    text.resize(size);
    return text;
}

inline std::string zeros(std::size_t size)
{
    std::string text;
    text.resize(size);
    return text;
}

inline Array<std::byte> compress(std::string_view text, int level = Io::DeflateOutputStream::DEFAULT_LEVEL,
                                 Optional<int> restartInterval = {})
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target, level, restartInterval);
    writeText(stream, text);
    stream.finish();
    return target.takeBytes();
}

inline std::string decompress(ArrayView<const std::byte> bytes, std::int64_t pieceSize = 65536)
{
    Io::MemoryInputStream source(bytes);
    Io::DeflateInputStream stream(source);
    return readAll(stream, pieceSize);
}

} // namespace Nolvex::Tests
