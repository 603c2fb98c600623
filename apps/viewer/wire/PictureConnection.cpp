// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureConnection.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLib/StopException.h"
#include "apps/viewer/wire/WireCommand.h"

#include <exception>
#include <limits>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using Wx::Legacy::ReceivedData;
using Wx::Legacy::ReceivedRawData;
using Wx::Legacy::SocketResult;
using Wx::Legacy::TcpSocket;

constexpr std::chrono::hours IDLE_PERIOD(1);
constexpr std::chrono::seconds HEADER_TIME(10);

} // namespace

// The socket is locked while a message comes. The hooks therefore only note why a message is refused, and
// throw to end the reading.
class PictureConnection::Context : public Wx::Legacy::ReadDataContext
{
public:
    explicit Context(PictureConnection& connection) : m_connection(connection) {}

    // Names on the wire never become names of files.
    Io::Path getFilePath(const XmlString& /*header*/) const override
    {
        m_connection.refuse(L"The viewer takes no files.");
    }

    void onReceiveStart(const XmlString& header) const override { m_connection.beginBody(header); }

private:
    PictureConnection& m_connection;
};

PictureConnection::PictureConnection(TcpSocket socket, const WireLimits& limits, Hooks hooks)
    : m_socket(std::move(socket)),
      m_limits(limits),
      m_hooks(std::move(hooks)),
      m_dueTime(std::numeric_limits<Clock::rep>::max()),
      m_thread([this] { run(); })
{}

PictureConnection::~PictureConnection()
{
    m_socket.beginClose();
    m_thread.join();
}

void PictureConnection::beginEnd()
{
    m_socket.beginClose();
}

void PictureConnection::endIfOverdue(Clock::time_point now)
{
    if (now.time_since_epoch().count() < m_dueTime)
        return;
    m_isOverdue = true;
    m_socket.beginClose();
}

void PictureConnection::run()
{
    try {
        serve();
    } catch (const StopException&) {
        m_reason = L"The sender speaks another protocol.";
    } catch (const std::exception& failure) {
        m_reason = String::fromUtf8(failure.what());
    }
    m_socket.close();
    m_hooks.ended(m_reason);
    m_ended = true;
}

void PictureConnection::serve()
{
    m_socket.setHeaderSizeLimit(WireLimits::MAX_HEADER_BYTES);
    m_socket.setHeaderTimeLimit(HEADER_TIME);
    m_reason = L"The connection to the sender ended before the picture was complete.";
    while (m_socket.isOpen()) {
        if (m_socket.waitForMessage(IDLE_PERIOD))
            serveMessage();
    }
}

void PictureConnection::serveMessage()
{
    ReceivedData message;
    allow(0);
    const SocketResult result = read(message);
    m_dueTime = std::numeric_limits<Clock::rep>::max();
    if (m_isOverdue)
        throw Exception("The sender was too slow.");
    if (result == SocketResult::Success) {
        if (!answer(apply(message)))
            throw Exception("The sender does not take the viewer's answers.");
        return;
    }
    // The rest of the message would be taken for the next message.
    if (m_refusal.isEmpty())
        m_refusal = L"A message of the sender broke off, or could not be read.";
    static_cast<void>(answer(m_refusal));
    throw Exception(m_refusal.toUtf8());
}

SocketResult PictureConnection::read(ReceivedData& message)
try {
    return m_socket.readData(message, Context(*this));

} catch (const Exception&) {
    return SocketResult::Error; // thrown by `refuse`
}

Optional<String> PictureConnection::apply(const ReceivedData& message)
{
    if (const auto* raw = message.tryGet<ReceivedRawData>())
        return m_hooks.apply(raw->header, raw->data);
    return m_hooks.apply(message.get<XmlString>(), {});
}

void PictureConnection::beginBody(const XmlString& header)
{
    const String text = header.getChild(L"FileSize").value_or(String());
    const auto size = SimpleTextDeserializer::parse<std::int64_t>(text).value_or(0);
    if (size > WireLimits::MAX_BODY_BYTES)
        refuse(L"A message takes at most " + String(std::to_wstring(WireLimits::MAX_BODY_BYTES)) +
               L" bytes of pixels.");
    allow(size);
}

void PictureConnection::refuse(const String& reason)
{
    m_refusal = reason;
    throw Exception(reason.toUtf8());
}

void PictureConnection::allow(std::int64_t bodyBytes)
{
    const auto time =
        m_limits.messageTime + std::chrono::milliseconds(bodyBytes * 1000 / m_limits.minBytesPerSecond);
    m_dueTime = (Clock::now() + time).time_since_epoch().count();
}

bool PictureConnection::answer(const Optional<String>& failure)
{
    return m_socket.writeString(composeWireAnswer(failure), m_limits.answerTime.count()) ==
           SocketResult::Success;
}

} // namespace Nolvex::Viewer
