// SPDX-License-Identifier: MIT
// Fuzzes the bytes from a peer: a header up to the first zero byte, then the piece of a body.
#include "Fuzz.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "NolvexLibWx/net/detail/MessageHeader.h"
#include "NolvexLibWx/net/detail/PieceInflation.h"

#include <algorithm>
#include <limits>
#include <string_view>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy::Detail;
using Nolvex::Fuzz::require;

namespace {

// A sender must write an accepted number in the same way, except for leading zeros and the like, and reading
// the written number must give the number again.
void checkMetadata(const XmlString& tree, const BodyMetadata& metadata)
{
    require(metadata.size >= 0);
    require(tree.countChildren(L"FileSize") >= 1 && tree.countChildren(L"Compressed") >= 1);
    const auto again = parseBodyMetadata(withBodyMetadata(XmlString(), metadata));
    require(again && again->size == metadata.size && again->compression == metadata.compression);
}

void checkHeader(std::string_view bytes)
{
    const auto header = parseMessageHeader(bytes);
    if (!header)
        return;
    require(header->tree.countChildren(L"DataType") >= 1);
    if (const auto metadata = parseBodyMetadata(header->tree))
        checkMetadata(header->tree, *metadata);
    if (const auto size = parseCompressedSize(header->tree))
        require(*size >= 0 && header->tree.countChildren(L"CompressedSize") >= 1);

    const auto again = parseMessageHeader(composeMessageHeader(header->tree, header->type));
    require(again && again->type == header->type);
    require(again->tree.childCount() >= header->tree.childCount());
}

// No piece decompresses to more than the allowed size plus the size of a piece.
void checkPiece(std::string_view bytes)
{
    constexpr std::int64_t LIMIT = 100'000;
    const ArrayView<const std::byte> piece(reinterpret_cast<const std::byte*>(bytes.data()),
                                           std::min<std::size_t>(bytes.size(), PIECE_SIZE));
    Array<std::byte> inflated;
    Io::MemoryOutputStream target(inflated);
    try {
        const std::int64_t count = inflatePiece(piece, LIMIT, target);
        require(count >= 0 && count <= LIMIT && count == static_cast<std::int64_t>(inflated.size()));
    } catch (const Exception&) {
        require(static_cast<std::int64_t>(inflated.size()) <= LIMIT + PIECE_SIZE);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Nolvex::Fuzz::asText(data, size);
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    checkHeader(bytes.substr(0, end));
    checkPiece(bytes.substr(std::min(end + 1, bytes.size())));
    return 0;
}
