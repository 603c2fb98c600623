// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/MessageReceiver.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileOutputStream.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/net/detail/PieceInflation.h"
#include "NolvexLibWx/net/detail/SocketLog.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

namespace Nolvex::Wx::Legacy::Detail {

namespace {

using std::chrono::seconds;

// How long each step of the protocol waits for a silent peer.
constexpr seconds HEADER_TIMEOUT(1);
constexpr seconds FILE_TIMEOUT(1);
constexpr seconds RAW_DATA_TIMEOUT(5);

constexpr std::int64_t MAX_RAW_DATA_SIZE = std::numeric_limits<std::int32_t>::max();

// How much memory is allocated for raw data before its first byte has come.
constexpr std::int64_t FIRST_ALLOCATION = 4 << 20;

constexpr char READ_DATA[] = "Nolvex::Wx::Legacy::TcpSocket::readData";

Optional<BodyMetadata> metadataOf(const XmlString& header)
{
    const Optional<BodyMetadata> metadata = parseBodyMetadata(header);
    if (!metadata)
        logForDevelopers(__LINE__, "Nolvex::Wx::Legacy::TcpSocket::readData::DataVisitor::getMetadata",
                         "Received invalid XML header (couldn't read metadata)");
    return metadata;
}

// Tells the context when the body begins and when it ends, however it ends. A beginning that the context
// itself refuses by an exception has no end.
template<class Receive>
bool betweenStartAndEnd(const ReadDataContext& context, const XmlString& header, Receive receive)
{
    bool isComplete = false;
    context.onReceiveStart(header);
    try {
        isComplete = receive();
    } catch (...) {
        context.onReceiveEnd(header);
        throw;
    }
    context.onReceiveEnd(header);
    return isComplete;
}

} // namespace

MessageReceiver::MessageReceiver(Connection& connection, const ReadDataContext& context,
                                 const ReceiveLimits& limits)
    : m_connection(connection), m_context(context), m_limits(limits)
{}

SocketResult MessageReceiver::receive(ReceivedData& out)
{
    Optional<MessageHeader> header = receiveHeader();
    if (!header)
        return SocketResult::Error;
    if (header->type < 0 || header->type >= static_cast<std::int32_t>(ReceivedData::EMPTY_INDEX))
        Nolvex::Detail::throwStopException("net/LegacySockets", __LINE__);
    out.emplaceIndex(static_cast<std::size_t>(header->type));
    if (auto* file = out.tryGet<ReceivedFile>())
        return receiveBody(*file, std::move(header->tree));
    if (auto* rawData = out.tryGet<ReceivedRawData>())
        return receiveBody(*rawData, std::move(header->tree));
    out.get<XmlString>() = std::move(header->tree);
    return SocketResult::Success;
}

Optional<MessageHeader> MessageReceiver::receiveHeader()
{
    std::string text;
    m_connection.setTimeout(HEADER_TIMEOUT.count());
    const Deadline end = Deadline::ofLimit(m_limits.headerTime.count());
    if (!m_connection.receiveText(text, m_limits.headerSize,
                                  Deadline::afterSilence(HEADER_TIMEOUT).noLaterThan(end)))
        return {};
    logForDevelopers(__LINE__, "Nolvex::Wx::Legacy::TcpSocket::readHeader", "Received header:", text);
    return parseMessageHeader(text);
}

SocketResult MessageReceiver::receiveBody(ReceivedFile& out, XmlString header)
try {
    Io::Path path = m_context.getFilePath(header);
    if (!betweenStartAndEnd(m_context, header, [&] { return receiveFile(header, path); }))
        return SocketResult::Error;
    logForDevelopers(__LINE__, READ_DATA, "Successfully read scene");
    out = {std::move(header), std::move(path)};
    return SocketResult::Success;

} catch (const Exception&) {
    // The file failed, or a hook.
    return SocketResult::Error;
}

bool MessageReceiver::receiveFile(const XmlString& header, const Io::Path& path)
{
    const Optional<BodyMetadata> metadata = metadataOf(header);
    if (!metadata)
        return false;
    const bool isDeflated = metadata->compression != 0;
    const Optional<std::int64_t> size = isDeflated ? parseCompressedSize(header) : metadata->size;
    if (!size)
        return false;
    Io::FileOutputStream target(path, Io::Open::TRUNCATE);
    m_connection.setTimeout(FILE_TIMEOUT.count());
    const bool isComplete =
        isDeflated ? receiveDeflated(target, *size, metadata->size) : receivePlain(target, *size);
    target.close();
    return isComplete;
}

bool MessageReceiver::receivePlain(Io::BinaryOutputStream& target, std::int64_t size)
{
    std::array<std::byte, PIECE_SIZE> buffer;
    Deadline patience = Deadline::afterSilence(m_limits.filePatience);
    while (size > 0) {
        const std::int64_t requested = std::min(size, PIECE_SIZE);
        // What has come is written once a second, though the sender pauses.
        const Deadline pause = Deadline::afterSilence(FILE_TIMEOUT).noLaterThan(patience);
        const std::int64_t count = m_connection.receive(buffer.data(), requested, pause);
        if (count < requested)
            logForDevelopers(__LINE__, READ_DATA, "Received less data than I should: ", count, "/",
                             requested);
        target.write(buffer.data(), count);
        size -= count;
        logForDevelopers(__LINE__, READ_DATA, "Read piece, remaining", size);
        if (count > 0)
            patience.restart();
        else if (patience.hasPassed())
            return false;
        if (!m_connection.isOpen())
            return false;
    }
    return true;
}

bool MessageReceiver::receiveDeflated(Io::BinaryOutputStream& target, std::int64_t size,
                                      std::int64_t inflatedSize)
{
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0 && m_connection.isOpen()) {
        const std::int64_t requested = std::min(size, PIECE_SIZE);
        // A piece is inflated by itself, so a pause of the sender must not cut it.
        const std::int64_t count =
            m_connection.receive(buffer.data(), requested, Deadline::afterSilence(m_limits.filePatience));
        const ArrayView<const std::byte> piece(buffer.data(), static_cast<std::size_t>(count));
        inflatedSize -= inflatePiece(piece, inflatedSize, target);
        if (count < requested)
            return false;
        size -= count;
    }
    return size == 0;
}

SocketResult MessageReceiver::receiveBody(ReceivedRawData& out, XmlString header)
{
    const Optional<BodyMetadata> metadata = metadataOf(header);
    if (!metadata)
        return SocketResult::Error;
    if (!betweenStartAndEnd(m_context, header, [&] { return receiveRaw(out.data, metadata->size); }))
        return SocketResult::Error;
    out.header = std::move(header);
    logForDevelopers(__LINE__, READ_DATA, "Data successfully received");
    return SocketResult::Success;
}

bool MessageReceiver::receiveRaw(ByteArray& data, std::int64_t size)
{
    logForDevelopers(__LINE__, READ_DATA, "Receiving data of size", size);
    if (size == 0 || size > MAX_RAW_DATA_SIZE) {
        logForDevelopers(__LINE__, READ_DATA, "Received invalid XML header (couldn't read file size)");
        return false;
    }
    m_connection.setTimeout(RAW_DATA_TIMEOUT.count());
    // The memory grows with what comes, because the size is only a claim of the peer.
    std::int64_t done = 0;
    std::int64_t allocated = 0;
    while (done == allocated && done < size) {
        allocated = std::min(size, std::max(FIRST_ALLOCATION, allocated * 2));
        data.resize(static_cast<std::size_t>(allocated));
        done += m_connection.receive(data.data() + done, allocated - done,
                                     Deadline::afterSilence(RAW_DATA_TIMEOUT));
    }
    data.resize(static_cast<std::size_t>(done));
    return done == size && m_connection.isOpen();
}

} // namespace Nolvex::Wx::Legacy::Detail
