// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceiveLimits.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/detail/Connection.h"
#include "NolvexLibWx/net/detail/MessageHeader.h"

#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// Receives one message over a connection whose lock the caller holds. Throws what the hooks throw, except
/// for an Exception in the course of a file, and std::bad_alloc.
class MessageReceiver : private Noncopyable
{
public:
    MessageReceiver(Connection& connection, const ReadDataContext& context, const ReceiveLimits& limits);

    /// As TcpSocket::readData.
    SocketResult receive(ReceivedData& out);

private:
    Optional<MessageHeader> receiveHeader();
    SocketResult receiveBody(ReceivedFile& out, XmlString header);
    SocketResult receiveBody(ReceivedRawData& out, XmlString header);
    bool receiveFile(const XmlString& header, const Io::Path& path);
    bool receivePlain(Io::BinaryOutputStream& target, std::int64_t size);
    bool receiveDeflated(Io::BinaryOutputStream& target, std::int64_t size, std::int64_t inflatedSize);
    bool receiveRaw(ByteArray& data, std::int64_t size);

    Connection& m_connection;
    const ReadDataContext& m_context;
    ReceiveLimits m_limits;
};

} // namespace Nolvex::Wx::Legacy::Detail
