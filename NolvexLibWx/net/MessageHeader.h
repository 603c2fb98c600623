// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/XmlString.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Wx::Legacy::Detail {

// The headers of the TCP messages, without any socket. The numbers in them are decimal digits, with a minus
// before them at most; what does not fit its type is no number.

struct MessageHeader
{
    XmlString tree;
    /// A DataType, if it is one.
    std::int32_t type = 0;
};

/// From the UTF-8 text before the terminator. None when that is no tree or the first "DataType" is no number
/// of 32 bits.
Optional<MessageHeader> parseMessageHeader(std::string_view bytes);

struct BodyMetadata
{
    /// In bytes, not negative; before compression.
    std::int64_t size = 0;
    /// A DataCompression, if it is one.
    std::int32_t compression = 0;
};

/// "FileSize" and "Compressed". None unless each is there once and is a number.
Optional<BodyMetadata> parseBodyMetadata(const XmlString& tree);

/// "CompressedSize", in bytes, not negative. None unless it is there once and is a number.
Optional<std::int64_t> parseCompressedSize(const XmlString& tree);

/// The text that travels, without terminator: "DataType", then the header's children.
std::string composeMessageHeader(const XmlString& header, std::int32_t type);

/// The header with the metadata behind its children, in place of all "FileSize", "Compressed" and
/// "CompressedSize" that it had, as that of a message that is passed on.
XmlString withBodyMetadata(const XmlString& header, const BodyMetadata& metadata);

/// Adds "CompressedSize", of which 32 bits travel: for 4 GiB and more the number is too small.
void addCompressedSize(XmlString& header, std::int64_t size);

} // namespace Nolvex::Wx::Legacy::Detail
