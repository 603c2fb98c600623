// SPDX-License-Identifier: MIT
#include "NolvexLibWx/c/detail/Guard.h"
#include "NolvexLibWx/c/detail/Texts.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "NolvexLibWx/net/TcpListener.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

struct NolvexListener
{
    TcpListener listener;
};

struct NolvexConnection
{
    std::unique_ptr<TcpSocket> socket;
};

struct NolvexMessage
{
    NolvexMessageKind kind;
    std::string xml;
    std::string path;
    ByteArray data;
};

namespace {

constexpr unsigned ACCEPT_SECONDS = 1;
constexpr std::size_t MAX_PATH_BYTES = 32'768;
constexpr std::size_t MAX_MEMORY_BYTES = 2'147'483'647;

SocketAddress addressOf(const char* host, std::uint16_t port)
{
    return host == nullptr ? SocketAddress::anyAddress(port) : SocketAddress(C::textOf(host), port);
}

Optional<std::int64_t> limitOf(std::int64_t timeoutMs)
{
    return timeoutMs < 0 ? Optional<std::int64_t>() : timeoutMs;
}

// Sends what `send` sends with the header, if the header is XML.
template<class Send>
NolvexStatus sendWith(NolvexConnection* connection, const char* headerXml, const Send& send)
{
    return C::guarded([&] {
        const Expected<XmlString, String> header =
            headerXml == nullptr ? XmlString() : XmlString::fromUtf8(headerXml);
        if (!header)
            return C::failed("The header is no XML: " + header.error().toUtf8());
        if (!connection->socket->isOpen())
            return C::failed("The connection has ended.");
        const SocketResult result = send(*connection->socket, *header);
        if (result == SocketResult::Timeout)
            return NOLVEX_TIMEOUT;
        return result == SocketResult::Success
                   ? NOLVEX_OK
                   : C::failed("The message was not sent: its file cannot be read, or the peer has gone.");
    });
}

class PathFromCaller : public ReadDataContext
{
public:
    PathFromCaller(NolvexChoosePath choose, void* context) : m_choose(choose), m_context(context) {}

    Io::Path getFilePath(const XmlString& header) const override
    {
        std::string path(MAX_PATH_BYTES, '\0');
        if (m_choose == nullptr ||
            m_choose(m_context, header.toString().toUtf8().c_str(), path.data(), path.size()) == 0)
            throw Exception("A file was refused.");
        path.back() = '\0';
        return C::pathOf(path.c_str());
    }

private:
    NolvexChoosePath m_choose;
    void* m_context;
};

// Returns false for a message that is refused, incomplete or broken, or of a kind that does not exist. The
// rest of such a message would be taken for the next one, so that the connection has to end, whatever is
// thrown.
bool receiveWhole(TcpSocket& socket, ReceivedData& data, const ReadDataContext& context)
{
    bool isWhole = false;
    try {
        isWhole = socket.readData(data, context) == SocketResult::Success;
    } catch (const StopException&) {
        isWhole = false; // the peer chose the kind
    } catch (...) {
        socket.close();
        throw;
    }
    if (!isWhole)
        socket.close();
    return isWhole;
}

std::unique_ptr<NolvexMessage> messageOf(ReceivedData&& data)
{
    auto message = std::make_unique<NolvexMessage>();
    message->kind = static_cast<NolvexMessageKind>(data.index());
    if (const auto* text = data.tryGet<XmlString>())
        message->xml = text->toString().toUtf8();
    if (const auto* file = data.tryGet<ReceivedFile>()) {
        message->xml = file->header.toString().toUtf8();
        message->path = C::bytesOf(file->path);
    }
    if (auto* memory = data.tryGet<ReceivedRawData>()) {
        message->xml = memory->header.toString().toUtf8();
        message->data = std::move(memory->data);
    }
    return message;
}

} // namespace

NolvexStatus nolvexListen(const char* host, uint16_t port, NolvexListener** listener)
{
    return C::guarded([&] {
        const SocketAddress address = addressOf(host, port);
        if (host != nullptr && !address.hasHost())
            return C::failed("There is no computer named \"" + C::textOf(host).toUtf8() + "\".");
        std::unique_ptr<NolvexListener> made(new NolvexListener{TcpListener(address, ACCEPT_SECONDS)});
        if (!made->listener.isOpen())
            return C::failed("The port " + std::to_string(port) + " cannot be listened on.");
        *listener = made.release();
        return NOLVEX_OK;
    });
}

uint16_t nolvexListenerPort(const NolvexListener* listener)
{
    std::uint16_t port = 0;
    C::guarded([&] {
        const Optional<SocketAddress> address = listener->listener.getLocalAddress();
        port = address ? address->getPort() : std::uint16_t{0};
        return NOLVEX_OK;
    });
    return port;
}

NolvexStatus nolvexAccept(NolvexListener* listener, int wait, NolvexConnection** connection)
{
    return C::guarded([&] {
        auto socket = std::make_unique<TcpSocket>(listener->listener.acceptConnection(wait != 0));
        if (!socket->isOpen())
            return listener->listener.isOpen() ? NOLVEX_TIMEOUT
                                               : C::failed("Nothing is listened on any more.");
        *connection = new NolvexConnection{std::move(socket)};
        return NOLVEX_OK;
    });
}

void nolvexCloseListener(NolvexListener* listener)
{
    delete listener;
}

NolvexStatus nolvexConnect(const char* host, uint16_t port, unsigned timeoutSeconds,
                           NolvexConnection** connection)
{
    return C::guarded([&] {
        auto client = std::make_unique<TcpClient>(addressOf(host, port), timeoutSeconds);
        if (!client->isOpen())
            return C::failed("There is no answer from " + C::textOf(host).toUtf8() + ", port " +
                             std::to_string(port) + ".");
        *connection = new NolvexConnection{std::move(client)};
        return NOLVEX_OK;
    });
}

int nolvexIsOpen(const NolvexConnection* connection)
{
    return connection->socket->isOpen() ? 1 : 0;
}

void nolvexCloseConnection(NolvexConnection* connection)
{
    delete connection;
}

NolvexStatus nolvexSendText(NolvexConnection* connection, const char* xml, int64_t timeoutMs)
{
    return sendWith(connection, xml, [&](TcpSocket& socket, const XmlString& text) {
        return socket.writeString(text, limitOf(timeoutMs));
    });
}

NolvexStatus nolvexSendFile(NolvexConnection* connection, const char* path, const char* headerXml,
                            int deflate, int64_t timeoutMs)
{
    return sendWith(connection, headerXml, [&](TcpSocket& socket, const XmlString& header) {
        const auto compression = deflate != 0 ? DataCompression::Deflate : DataCompression::None;
        return socket.writeFile(C::pathOf(path), header, compression, DataType::File, limitOf(timeoutMs));
    });
}

NolvexStatus nolvexSendMemory(NolvexConnection* connection, const void* data, size_t size,
                              const char* headerXml, int64_t timeoutMs)
{
    if (size == 0 || size > MAX_MEMORY_BYTES)
        return C::failed("A block of memory has 1 to 2,147,483,647 bytes.");
    return sendWith(connection, headerXml, [&](TcpSocket& socket, const XmlString& header) {
        const ArrayView<const std::byte> bytes(static_cast<const std::byte*>(data), size);
        return socket.writeRawMemory(bytes, header, DataCompression::None, DataType::RawData,
                                     limitOf(timeoutMs));
    });
}

NolvexStatus nolvexReceive(NolvexConnection* connection, int64_t silenceMs, NolvexChoosePath choosePath,
                           void* context, NolvexMessage** message)
{
    return C::guarded([&] {
        TcpSocket& socket = *connection->socket;
        const auto silence =
            silenceMs < 0 ? std::chrono::milliseconds::max() : std::chrono::milliseconds(silenceMs);
        if (!socket.waitForMessage(silence))
            return socket.isOpen() ? NOLVEX_TIMEOUT : C::failed("The connection has ended.");
        ReceivedData data;
        if (!receiveWhole(socket, data, PathFromCaller(choosePath, context)))
            return C::failed("A message was refused, or has come incomplete or broken.");
        *message = messageOf(std::move(data)).release();
        return NOLVEX_OK;
    });
}

NolvexMessageKind nolvexMessageKind(const NolvexMessage* message)
{
    return message->kind;
}

const char* nolvexMessageXml(const NolvexMessage* message)
{
    return message->xml.c_str();
}

const char* nolvexMessagePath(const NolvexMessage* message)
{
    return message->path.c_str();
}

const void* nolvexMessageData(const NolvexMessage* message, size_t* size)
{
    if (size != nullptr)
        *size = message->data.size();
    return message->kind == NOLVEX_MEMORY ? message->data.data() : nullptr;
}

void nolvexFreeMessage(NolvexMessage* message)
{
    delete message;
}
