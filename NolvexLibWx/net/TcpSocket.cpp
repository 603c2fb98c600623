// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpSocket.h"

#include "NolvexLib/TraceElapsedTime.h"
#include "NolvexLibWx/net/detail/Connection.h"
#include "NolvexLibWx/net/detail/MessageReceiver.h"
#include "NolvexLibWx/net/detail/MessageSender.h"
#include "NolvexLibWx/net/detail/WxAddress.h"

#include <wx/socket.h>

#include <exception>
#include <mutex>
#include <new>
#include <utility>

namespace Nolvex::Wx::Legacy {

namespace {

// A failure outside of the program is an Error like any other.
template<class Send>
SocketResult sendOver(const AutoPtr<Detail::Connection>& connection, Send send)
{
    if (connection == nullptr || !connection->isOpen())
        return SocketResult::Error;
    try {
        return send(*connection);
    } catch (const std::exception&) {
        return SocketResult::Error;
    }
}

AutoPtr<Detail::Connection> connectionOver(Detail::SocketOwner socket)
{
    if (socket == nullptr)
        return nullptr;
    return std::make_unique<Detail::Connection>(std::move(socket));
}

} // namespace

TcpSocket::TcpSocket(Detail::SocketOwner socket) : m_connection(connectionOver(std::move(socket))) {}

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
    close();
}

void TcpSocket::swapConnection(TcpSocket& other)
{
    const std::lock_guard lock(m_mutex);
    const std::lock_guard stateLock(m_stateMutex);
    std::swap(m_connection, other.m_connection);
    std::swap(m_limits, other.m_limits);
}

wxSocketBase* TcpSocket::wxSocket() const
{
    return m_connection == nullptr ? nullptr : &m_connection->socket();
}

void TcpSocket::replaceSocket(Detail::SocketOwner socket)
{
    AutoPtr<Detail::Connection> connection = connectionOver(std::move(socket));
    const std::lock_guard lock(m_mutex);
    const std::lock_guard stateLock(m_stateMutex);
    std::swap(m_connection, connection);
}

bool TcpSocket::isOpen() const
{
    const std::lock_guard lock(m_stateMutex);
    return m_connection != nullptr && m_connection->isOpen();
}

void TcpSocket::beginClose()
{
    const std::lock_guard lock(m_stateMutex);
    if (m_connection != nullptr)
        m_connection->end();
}

void TcpSocket::close()
{
    beginClose();
    // A transfer on another thread is over as soon as this lock is free.
    const std::lock_guard lock(m_mutex);
    AutoPtr<Detail::Connection> connection;
    {
        const std::lock_guard stateLock(m_stateMutex);
        connection = std::move(m_connection);
    }
}

Optional<SocketAddress> TcpSocket::getPeerAddress()
{
    const std::lock_guard lock(m_mutex);
    wxIPV4address address;
    if (m_connection == nullptr || !m_connection->socket().IsOk() || !m_connection->socket().GetPeer(address))
        return {};
    return Detail::WxAddress::copied(address);
}

void TcpSocket::setHeaderSizeLimit(std::size_t bytes)
{
    const std::lock_guard lock(m_stateMutex);
    m_limits.headerSize = bytes;
}

void TcpSocket::setHeaderTimeLimit(std::chrono::milliseconds time)
{
    const std::lock_guard lock(m_stateMutex);
    m_limits.headerTime = time;
}

void TcpSocket::setFilePatience(std::chrono::milliseconds silence)
{
    const std::lock_guard lock(m_stateMutex);
    m_limits.filePatience = silence;
}

Detail::ReceiveLimits TcpSocket::limits() const
{
    const std::lock_guard lock(m_stateMutex);
    return m_limits;
}

bool TcpSocket::waitForMessage(std::chrono::milliseconds silence)
{
    const std::lock_guard lock(m_mutex);
    return m_connection != nullptr && m_connection->isOpen() &&
           m_connection->waitForBytes(Detail::Deadline::afterSilence(silence));
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
    if (m_connection == nullptr || !m_connection->isOpen())
        return SocketResult::Error;
    try {
        return Detail::MessageReceiver(*m_connection, context, limits()).receive(out);
    } catch (const std::bad_alloc&) {
        return SocketResult::Error;
    }
}

SocketResult TcpSocket::writeString(const XmlString& message, const Optional<std::int64_t>& timeoutMs)
{
    const std::lock_guard lock(m_mutex);
    return sendOver(m_connection, [&](Detail::Connection& connection) {
        return Detail::MessageSender(connection, timeoutMs).sendHeader(message, DataType::XmlString);
    });
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
    return sendOver(m_connection, [&](Detail::Connection& connection) {
        return Detail::MessageSender(connection, timeoutMs).sendFile(path, header, compression, type);
    });
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
    return sendOver(m_connection, [&](Detail::Connection& connection) {
        return Detail::MessageSender(connection, timeoutMs).sendRawMemory(data, header, compression, type);
    });
}

} // namespace Nolvex::Wx::Legacy
