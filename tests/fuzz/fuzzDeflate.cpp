// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/DeflateInputStream.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"

#include <algorithm>
#include <array>

using Nolvex::Array;
using Nolvex::ArrayView;
using Nolvex::Exception;
using Nolvex::Fuzz::require;

namespace Io = Nolvex::Io;

namespace {

using Bytes = Array<std::byte>;

// The limit is necessary because a few bytes can decompress to very many.
constexpr std::size_t LIMIT = 1 << 20;

Bytes readUpToLimit(Io::BinaryInputStream& stream)
{
    Bytes content;
    std::array<std::byte, 1000> piece{};
    while (content.size() < LIMIT) {
        const std::int64_t count = stream.read(piece.data(), static_cast<std::int64_t>(piece.size()));
        require(count >= 0 && count <= static_cast<std::int64_t>(piece.size()));
        if (count == 0)
            break;
        content.insert(content.end(), piece.begin(), piece.begin() + count);
    }
    return content;
}

Bytes inflated(ArrayView<const std::byte> bytes)
{
    Io::MemoryInputStream source(bytes);
    Io::DeflateInputStream stream(source);
    return readUpToLimit(stream);
}

Bytes deflated(ArrayView<const std::byte> bytes, int level, std::size_t pieceLength)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target, level);
    for (std::size_t done = 0; done < bytes.size(); done += pieceLength) {
        const std::size_t length = std::min(pieceLength, bytes.size() - done);
        stream.write(bytes.data() + done, static_cast<std::int64_t>(length));
    }
    stream.finish();
    return target.takeBytes();
}

bool areEqual(ArrayView<const std::byte> a, const Bytes& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

void checkInflate(ArrayView<const std::byte> bytes)
{
    try {
        inflated(bytes);
    } catch (const Exception& exception) {
        require(*exception.what() != '\0');
    }
}

void checkRoundTrip(ArrayView<const std::byte> bytes)
{
    // The input decides how it is compressed as well.
    const auto seed = bytes.size() == 0 ? 0U : std::to_integer<unsigned int>(bytes[0]);
    const Bytes compressed = deflated(bytes, static_cast<int>(seed % 10), seed + 1);
    require(areEqual(bytes, inflated(compressed)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ArrayView<const std::byte> bytes(reinterpret_cast<const std::byte*>(data), size);
    checkInflate(bytes);
    checkRoundTrip(bytes);
    return 0;
}
