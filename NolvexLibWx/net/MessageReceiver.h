// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/MessageHeader.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy::Detail {

/// Receives one message over a socket that is locked. Raises what the hooks raise, but for an Exception in
/// the course of a file, and std::bad_alloc.
class MessageReceiver : private Noncopyable
{
public:
    MessageReceiver(LockedSocket& socket, const ReadDataContext& context, std::size_t headerSizeLimit);

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

    LockedSocket& m_socket;
    const ReadDataContext& m_context;
    std::size_t m_headerSizeLimit;
};

} // namespace Nolvex::Wx::Legacy::Detail
