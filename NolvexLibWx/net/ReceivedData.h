// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ByteArray.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Variant.h"
#include "NolvexLib/XmlString.h"

#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// The kinds of messages. The value travels in every header and is the index of the alternative of
/// ReceivedData that the receiver fills.
enum class DataType : std::int32_t
{
    XmlString = 0,
    File = 1,
    RawData = 2,
};

/// How the body of a message travels. Raw memory is never compressed, whatever its header says.
enum class DataCompression : std::int32_t
{
    None = 0,
    /// For files: zlib data (RFC 1950) that begins anew every 65,536 bytes.
    Deflate = 1,
};

/// A message whose body is a file.
struct ReceivedFile
{
    XmlString header;
    /// Where the body was written; on sending, the file to send.
    Io::Path path;
};

/// A message whose body is a block of memory.
struct ReceivedRawData
{
    XmlString header;
    ByteArray data;
};

/// A message. The index of the alternative is the message's DataType. A text message consists of its header,
/// which after receiving holds the child "DataType" as well.
using ReceivedData = Variant<XmlString, ReceivedFile, ReceivedRawData>;

} // namespace Nolvex::Wx::Legacy
