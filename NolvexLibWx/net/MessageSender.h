// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/BinaryInputStream.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/net/DataCompression.h"
#include "NolvexLibWx/net/DataType.h"
#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/TimeLimit.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// Sends one message over a socket that is locked. Raises Exception where a file fails, and std::bad_alloc.
class MessageSender : private Noncopyable
{
public:
    /// The time limit, in milliseconds, counts from here on.
    MessageSender(LockedSocket& socket, const Optional<std::int64_t>& timeoutMs);

    SocketResult sendHeader(const XmlString& header, DataType type);

    SocketResult sendRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                               DataCompression compression, DataType type);

    SocketResult sendFile(const Io::Path& path, const XmlString& header, DataCompression compression,
                          DataType type);

private:
    SocketResult sendWhole(const void* data, std::int64_t size, const TimeLimit& limit, Patience patience);
    SocketResult sendPiece(const void* data, std::int64_t size);
    /// Success when `bytes` holds the next `size` bytes of the source, compressed.
    SocketResult deflate(Io::BinaryInputStream& source, std::int64_t size, Array<std::byte>& bytes) const;
    SocketResult sendBody(Io::BinaryInputStream& source, std::int64_t size);
    void beginBody(std::int64_t defaultLimitMs);

    LockedSocket& m_socket;
    Optional<std::int64_t> m_timeoutMs;
    TimeLimit m_limit;
    std::int64_t m_lastCount = 0;
};

} // namespace Nolvex::Wx::Legacy::Detail
