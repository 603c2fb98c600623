// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/XmlString.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Wx::Legacy::Detail {

// The headers of the TCP messages, apart from any socket. A number in a header is decimal digits, with at
// most a minus before them, and must fit its type.

struct MessageHeader
{
    XmlString tree;
    /// A DataType, or a number that stands for no kind of message.
    std::int32_t type = 0;
};

/// Parses the UTF-8 text before the terminator. Returns nullopt if the text is no tree or its first
/// "DataType" is no number of 32 bits.
Optional<MessageHeader> parseMessageHeader(std::string_view bytes);

struct BodyMetadata
{
    /// In bytes, not negative; before compression.
    std::int64_t size = 0;
    /// A DataCompression, or a number without a meaning.
    std::int32_t compression = 0;
};

/// Reads "FileSize" and "Compressed". Returns nullopt unless each of the two is a number; a child that is
/// there more than once must hold the same number each time.
Optional<BodyMetadata> parseBodyMetadata(const XmlString& tree);

/// Reads "CompressedSize", in bytes and not negative, by the same rules.
Optional<std::int64_t> parseCompressedSize(const XmlString& tree);

/// Returns the text that travels, without its terminator: "DataType", then the header's children.
std::string composeMessageHeader(const XmlString& header, std::int32_t type);

/// Returns the header with the metadata behind its children. All "FileSize", "Compressed" and
/// "CompressedSize" that the header had are left out: it may be that of a message that is passed on.
XmlString withBodyMetadata(const XmlString& header, const BodyMetadata& metadata);

/// Adds "CompressedSize". Only 32 bits of the size travel, so for 4 GiB and more the number is too small.
void addCompressedSize(XmlString& header, std::int64_t size);

} // namespace Nolvex::Wx::Legacy::Detail
