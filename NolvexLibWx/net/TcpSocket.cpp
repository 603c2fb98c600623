// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpSocket.h"

#include "NolvexLib/TraceElapsedTime.h"
#include "NolvexLibWx/net/LockedSocket.h"
#include "NolvexLibWx/net/MessageReceiver.h"
#include "NolvexLibWx/net/MessageSender.h"
#include "NolvexLibWx/net/ToolkitAddress.h"

#include <wx/socket.h>

#include <exception>
#include <mutex>
#include <new>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

// What goes wrong outside the program is an Error like any other.
template<class Send>
SocketResult sendOrFail(Send send)
{
    try {
        return send();
    } catch (const std::exception&) {
        return SocketResult::Error;
    }
}

} // namespace

TcpSocket::TcpSocket(Detail::SocketOwner socket) : m_socket(std::move(socket)) {}

TcpSocket::TcpSocket(TcpSocket&& other) noexcept : Polymorphic(), NoncopyableMovable()
{
    swapConnection(other);
}

TcpSocket& TcpSocket::operator=(TcpSocket&& other) noexcept
{
    if (this != &other)
        swapConnection(other);
    return *this;
}

TcpSocket::~TcpSocket()
{
    m_closed = true;
    release();
}

void TcpSocket::swapConnection(TcpSocket& other)
{
    const std::lock_guard lock(m_mutex);
    const std::lock_guard socketLock(m_socketMutex);
    std::swap(m_socket, other.m_socket);
    m_closed = other.m_closed.exchange(m_closed);
    m_lost = other.m_lost.exchange(m_lost);
    m_headerSizeLimit = other.m_headerSizeLimit.exchange(m_headerSizeLimit);
}

void TcpSocket::release()
{
    const std::lock_guard lock(m_mutex);
    Detail::SocketOwner socket;
    {
        const std::lock_guard socketLock(m_socketMutex);
        socket = std::move(m_socket);
    }
}

void TcpSocket::replaceSocket(Detail::SocketOwner socket)
{
    const std::lock_guard lock(m_mutex);
    {
        const std::lock_guard socketLock(m_socketMutex);
        std::swap(m_socket, socket);
    }
}

bool TcpSocket::isOpen() const
{
    const std::lock_guard lock(m_socketMutex);
    return m_socket != nullptr && m_socket->IsOk() && !m_socket->IsClosed() && !m_closed && !m_lost;
}

void TcpSocket::close()
{
    m_closed = true;
    release();
}

Optional<SocketAddress> TcpSocket::getPeerAddress()
{
    const std::lock_guard lock(m_mutex);
    wxIPV4address address;
    if (m_socket == nullptr || !m_socket->IsOk() || !m_socket->GetPeer(address))
        return {};
    return Detail::ToolkitAddress::copied(address);
}

void TcpSocket::setHeaderSizeLimit(std::size_t bytes)
{
    m_headerSizeLimit = bytes;
}

SocketResult TcpSocket::readString(XmlString& out)
{
    ReceivedData data;
    const SocketResult result = readData(data, ReadDataContext());
    auto* const text = data.tryGet<XmlString>();
    if (result != SocketResult::Success || text == nullptr)
        return SocketResult::Error;
    out = std::move(*text);
    return SocketResult::Success;
}

SocketResult TcpSocket::readData(ReceivedData& out, const ReadDataContext& context)
{
    const std::lock_guard lock(m_mutex);
    Detail::LockedSocket socket(m_socket.get(), m_closed, m_lost);
    if (!socket.isOpen())
        return SocketResult::Error;
    try {
        return Detail::MessageReceiver(socket, context, m_headerSizeLimit).receive(out);
    } catch (const std::bad_alloc&) {
        return SocketResult::Error;
    }
}

SocketResult TcpSocket::writeString(const XmlString& message, const Optional<std::int64_t>& timeoutMs)
{
    const std::lock_guard lock(m_mutex);
    Detail::LockedSocket socket(m_socket.get(), m_closed, m_lost);
    return sendOrFail(
        [&] { return Detail::MessageSender(socket, timeoutMs).sendHeader(message, DataType::XmlString); });
}

SocketResult TcpSocket::writeData(const ReceivedData& data, DataCompression compression, DataType type)
{
    if (const auto* text = data.tryGet<XmlString>())
        return writeString(*text);
    if (const auto* file = data.tryGet<ReceivedFile>())
        return writeFile(file->path, file->header, compression, type);
    if (const auto* rawData = data.tryGet<ReceivedRawData>())
        return writeRawMemory(rawData->data, rawData->header, compression, type);
    return SocketResult::Error;
}

SocketResult TcpSocket::writeFile(const Io::Path& path, const XmlString& header, DataCompression compression,
                                  DataType type, const Optional<std::int64_t>& timeoutMs)
{
    if (!isOpen())
        return SocketResult::Error;
    const std::lock_guard lock(m_mutex);
    Detail::LockedSocket socket(m_socket.get(), m_closed, m_lost);
    return sendOrFail(
        [&] { return Detail::MessageSender(socket, timeoutMs).sendFile(path, header, compression, type); });
}

SocketResult TcpSocket::writeRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                                       DataCompression compression, DataType type,
                                       const Optional<std::int64_t>& timeoutMs)
{
    const Nolvex::Detail::TraceElapsedTime trace(Timer(1000), "net/LegacySockets", __LINE__,
                                                 "Nolvex::Wx::Legacy::TcpSocket::writeRawMemory");
    if (!isOpen())
        return SocketResult::Error;
    const std::lock_guard lock(m_mutex);
    Detail::LockedSocket socket(m_socket.get(), m_closed, m_lost);
    return sendOrFail([&] {
        return Detail::MessageSender(socket, timeoutMs).sendRawMemory(data, header, compression, type);
    });
}

} // namespace Nolvex::Wx::Legacy
