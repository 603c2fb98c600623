// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/detail/MessageSender.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLibWx/net/detail/MessageHeader.h"
#include "NolvexLibWx/net/detail/SocketLog.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace Nolvex::Wx::Legacy::Detail {

namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds HEADER_TIMEOUT(1);
constexpr milliseconds RAW_MEMORY_LIMIT(3'600'000);
constexpr milliseconds FILE_LIMIT(120'000);

std::int64_t sizeOf(const Io::Path& path)
{
    const auto size = Io::fileSize(path);
    if (!size)
        throw Exception("The size of the file to send is unknown.");
    return static_cast<std::int64_t>(*size);
}

// Never reads more than was announced, though the file may have grown.
void readOrThrow(Io::FileInputStream& file, void* buffer, std::int64_t count)
{
    if (!file.readExactly(buffer, count))
        throw Exception("The file became shorter while it was sent.");
}

} // namespace

MessageSender::MessageSender(Connection& connection, const Optional<std::int64_t>& timeoutMs)
    : m_connection(connection), m_timeoutMs(timeoutMs), m_limit(Deadline::ofLimit(timeoutMs))
{}

SocketResult MessageSender::sendHeader(const XmlString& header, DataType type)
{
    if (!m_connection.isOpen())
        return SocketResult::Error;
    const std::string text = composeMessageHeader(header, static_cast<std::int32_t>(type));
    m_connection.setTimeout(HEADER_TIMEOUT.count());
    // The header has the whole of the caller's time, however long it took to prepare the body.
    const Deadline limit = Deadline::ofLimit(m_timeoutMs);
    return sendWhole(text.c_str(), static_cast<std::int64_t>(text.size() + 1),
                     Deadline::afterSilence(HEADER_TIMEOUT).noLaterThan(limit), limit);
}

SocketResult MessageSender::sendRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                                          DataCompression compression, DataType type)
{
    auto left = static_cast<std::int64_t>(data.size());
    const BodyMetadata metadata = {left, static_cast<std::int32_t>(compression)};
    const SocketResult headerResult = sendHeader(withBodyMetadata(header, metadata), type);
    if (headerResult != SocketResult::Success)
        return headerResult;
    beginBody(RAW_MEMORY_LIMIT);
    for (const std::byte* next = data.data(); left > 0;) {
        const std::int64_t piece = std::min(left, PIECE_SIZE);
        const SocketResult result = sendPiece(next, piece);
        if (result == SocketResult::Error)
            logForDevelopers(__LINE__, "Nolvex::Wx::Legacy::TcpSocket::writeRawMemory",
                             "!!!!! FAILED TO WRITE CHUNK ", m_lastCount, " / ", piece);
        if (result != SocketResult::Success)
            return result;
        next += piece;
        left -= piece;
    }
    return SocketResult::Success;
}

SocketResult MessageSender::sendFile(const Io::Path& path, const XmlString& header,
                                     DataCompression compression, DataType type)
{
    Io::FileInputStream file(path);
    const std::int64_t size = sizeOf(path);
    XmlString fullHeader = withBodyMetadata(header, {size, static_cast<std::int32_t>(compression)});
    if (compression == DataCompression::Deflate)
        return sendDeflated(file, size, std::move(fullHeader), type);
    return sendPlain(file, size, fullHeader, type);
}

SocketResult MessageSender::sendPlain(Io::FileInputStream& file, std::int64_t size, const XmlString& header,
                                      DataType type)
{
    SocketResult result = sendHeader(header, type);
    if (result == SocketResult::Success)
        beginBody(FILE_LIMIT);
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0 && result == SocketResult::Success) {
        const std::int64_t piece = std::min(size, PIECE_SIZE);
        readOrThrow(file, buffer.data(), piece);
        result = sendPiece(buffer.data(), piece);
        size -= piece;
    }
    return result;
}

SocketResult MessageSender::sendDeflated(Io::FileInputStream& file, std::int64_t size, XmlString header,
                                         DataType type)
{
    PieceStore store;
    if (!deflate(file, size, store))
        return SocketResult::Error;
    addCompressedSize(header, store.size());
    SocketResult result = sendHeader(header, type);
    if (result == SocketResult::Success)
        beginBody(FILE_LIMIT);
    for (const ByteArray& piece : store.pieces()) {
        if (result == SocketResult::Success)
            result = sendPiece(piece.data(), static_cast<std::int64_t>(piece.size()));
    }
    return result;
}

// Returns false if the connection ended meanwhile.
bool MessageSender::deflate(Io::FileInputStream& file, std::int64_t size, PieceStore& store) const
{
    // The receiver inflates each piece by itself.
    Io::DeflateOutputStream stream(store, Io::DeflateOutputStream::DEFAULT_LEVEL,
                                   static_cast<int>(PIECE_SIZE));
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0) {
        // A large file takes a while, during which another thread may close the socket.
        if (!m_connection.isOpen())
            return false;
        const std::int64_t piece = std::min(size, PIECE_SIZE);
        readOrThrow(file, buffer.data(), piece);
        stream.write(buffer.data(), piece);
        stream.flush();
        size -= piece;
    }
    stream.finish();
    return true;
}

void MessageSender::beginBody(milliseconds defaultLimit)
{
    m_connection.setTimeout(m_timeoutMs.value_or(defaultLimit.count()) / 1000);
    m_bodySilence = defaultLimit;
}

SocketResult MessageSender::sendPiece(const void* data, std::int64_t size)
{
    if (m_limit.hasPassed())
        return SocketResult::Timeout;
    // The caller's limit, if there is one, is all that bounds the wait for the peer.
    return sendWhole(data, size, m_timeoutMs ? m_limit : Deadline::afterSilence(m_bodySilence), m_limit);
}

// Begins again as long as the peer takes no byte at all.
SocketResult MessageSender::sendWhole(const void* data, std::int64_t size, const Deadline& silence,
                                      const Deadline& limit)
{
    for (Deadline wait = silence;; wait.restart()) {
        m_lastCount = m_connection.send(data, size, wait);
        if (m_lastCount == size)
            return SocketResult::Success;
        if (m_connection.isOpen() && limit.hasPassed())
            return SocketResult::Timeout;
        if (m_lastCount != 0 || !m_connection.isOpen())
            return SocketResult::Error;
    }
}

} // namespace Nolvex::Wx::Legacy::Detail
