// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/detail/Connection.h"
#include "NolvexLibWx/net/detail/Deadline.h"
#include "NolvexLibWx/net/detail/PieceStore.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// Sends one message over a connection whose lock the caller holds. Throws Exception if a file fails, and
/// std::bad_alloc.
class MessageSender : private Noncopyable
{
public:
    /// The time limit, in milliseconds, begins now.
    MessageSender(Connection& connection, const Optional<std::int64_t>& timeoutMs);

    SocketResult sendHeader(const XmlString& header, DataType type);

    SocketResult sendRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                               DataCompression compression, DataType type);

    SocketResult sendFile(const Io::Path& path, const XmlString& header, DataCompression compression,
                          DataType type);

private:
    SocketResult sendPlain(Io::FileInputStream& file, std::int64_t size, const XmlString& header,
                           DataType type);
    SocketResult sendDeflated(Io::FileInputStream& file, std::int64_t size, XmlString header, DataType type);
    bool deflate(Io::FileInputStream& file, std::int64_t size, PieceStore& store) const;
    void beginBody(std::chrono::milliseconds defaultLimit);
    SocketResult sendPiece(const void* data, std::int64_t size);
    SocketResult sendWhole(const void* data, std::int64_t size, const Deadline& silence,
                           const Deadline& limit);

    Connection& m_connection;
    Optional<std::int64_t> m_timeoutMs;
    // The caller's limit for the whole message.
    Deadline m_limit;
    // How long the peer may take nothing of a body.
    std::chrono::milliseconds m_bodySilence{0};
    std::int64_t m_lastCount = 0;
};

} // namespace Nolvex::Wx::Legacy::Detail
