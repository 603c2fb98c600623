// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/MessageReceiver.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileOutputStream.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/net/PieceInflation.h"
#include "NolvexLibWx/net/SocketLog.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

namespace Nolvex::Wx::Legacy::Detail {

namespace {

constexpr std::int64_t HEADER_TIMEOUT_SECONDS = 1;
constexpr std::int64_t FILE_TIMEOUT_SECONDS = 1;
constexpr std::int64_t RAW_DATA_TIMEOUT_SECONDS = 5;

constexpr std::int64_t RAW_DATA_SIZE_LIMIT = std::numeric_limits<std::int32_t>::max();

// What is allocated for raw data before the first byte of it is there.
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

// Tells the context of the body's end, whatever the function that receives it does. A beginning that the
// context itself refused by an exception has no end.
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

MessageReceiver::MessageReceiver(LockedSocket& socket, const ReadDataContext& context,
                                 std::size_t headerSizeLimit)
    : m_socket(socket), m_context(context), m_headerSizeLimit(headerSizeLimit)
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
    m_socket.setTimeout(HEADER_TIMEOUT_SECONDS);
    if (!m_socket.receiveText(text, m_headerSizeLimit))
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
    // Of the file or of a hook, alike.
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
    m_socket.setTimeout(FILE_TIMEOUT_SECONDS);
    const bool isComplete =
        isDeflated ? receiveDeflated(target, *size, metadata->size) : receivePlain(target, *size);
    target.close();
    return isComplete;
}

bool MessageReceiver::receivePlain(Io::BinaryOutputStream& target, std::int64_t size)
{
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0) {
        const std::int64_t requested = std::min(size, PIECE_SIZE);
        const std::int64_t count = m_socket.receive(buffer.data(), requested);
        if (count < requested)
            logForDevelopers(__LINE__, READ_DATA, "Received less data than I should: ", count, "/",
                             requested);
        target.write(buffer.data(), count);
        size -= count;
        logForDevelopers(__LINE__, READ_DATA, "Read piece, remaining", size);
        // A peer that stays silent for the whole time-out is given up.
        if (count == 0 || !m_socket.isOpen())
            return false;
    }
    return true;
}

bool MessageReceiver::receiveDeflated(Io::BinaryOutputStream& target, std::int64_t size,
                                      std::int64_t inflatedSize)
{
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0 && m_socket.isOpen()) {
        const std::int64_t count = m_socket.receive(buffer.data(), std::min(size, PIECE_SIZE));
        const ArrayView<const std::byte> piece(buffer.data(), static_cast<std::size_t>(count));
        inflatedSize -= inflatePiece(piece, inflatedSize, target);
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
    if (size == 0 || size > RAW_DATA_SIZE_LIMIT) {
        logForDevelopers(__LINE__, READ_DATA, "Received invalid XML header (couldn't read file size)");
        return false;
    }
    m_socket.setTimeout(RAW_DATA_TIMEOUT_SECONDS);
    // Grows with what comes: the size is only the peer's word.
    std::int64_t done = 0;
    std::int64_t allocated = 0;
    while (done == allocated && done < size) {
        allocated = std::min(size, std::max(FIRST_ALLOCATION, allocated * 2));
        data.resize(static_cast<std::size_t>(allocated));
        done += m_socket.receive(data.data() + done, allocated - done);
    }
    data.resize(static_cast<std::size_t>(done));
    return done == size && m_socket.isOpen();
}

} // namespace Nolvex::Wx::Legacy::Detail
