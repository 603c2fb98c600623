// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/MessageSender.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Io/ForwardingBinaryOutputStream.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "NolvexLibWx/net/MessageHeader.h"
#include "NolvexLibWx/net/PieceInflation.h"
#include "NolvexLibWx/net/SocketLog.h"

#include <algorithm>
#include <array>
#include <string>

namespace Nolvex::Wx::Legacy::Detail {

namespace {

constexpr std::int64_t HEADER_TIMEOUT_SECONDS = 1;
constexpr std::int64_t RAW_MEMORY_LIMIT_MS = 3'600'000;
constexpr std::int64_t FILE_LIMIT_MS = 120'000;

std::int64_t sizeOf(const Io::Path& path)
{
    const auto size = Io::fileSize(path);
    if (!size)
        throw Exception("The size of the file to send is unknown.");
    return static_cast<std::int64_t>(*size);
}

// Never more than was announced, though the file may have grown.
void readOrThrow(Io::BinaryInputStream& source, void* buffer, std::int64_t count)
{
    if (!source.readExactly(buffer, count))
        throw Exception("The file became shorter while it was sent.");
}

} // namespace

MessageSender::MessageSender(LockedSocket& socket, const Optional<std::int64_t>& timeoutMs)
    : m_socket(socket), m_timeoutMs(timeoutMs), m_limit(timeoutMs)
{}

SocketResult MessageSender::sendHeader(const XmlString& header, DataType type)
{
    if (!m_socket.isOpen())
        return SocketResult::Error;
    const std::string text = composeMessageHeader(header, static_cast<std::int32_t>(type));
    m_socket.setTimeout(HEADER_TIMEOUT_SECONDS);
    return sendWhole(text.c_str(), static_cast<std::int64_t>(text.size() + 1), TimeLimit(m_timeoutMs),
                     Patience::SOCKET_TIMEOUT);
}

SocketResult MessageSender::sendRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                                          DataCompression compression, DataType type)
{
    auto left = static_cast<std::int64_t>(data.size());
    const BodyMetadata metadata = {left, static_cast<std::int32_t>(compression)};
    const SocketResult headerResult = sendHeader(withBodyMetadata(header, metadata), type);
    if (headerResult != SocketResult::Success)
        return headerResult;
    beginBody(RAW_MEMORY_LIMIT_MS);
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
    const std::int64_t fileSize = sizeOf(path);
    XmlString fullHeader = withBodyMetadata(header, {fileSize, static_cast<std::int32_t>(compression)});
    Array<std::byte> bytes;
    const bool isDeflated = compression == DataCompression::Deflate;
    if (isDeflated) {
        const SocketResult deflateResult = deflate(file, fileSize, bytes);
        if (deflateResult != SocketResult::Success)
            return deflateResult;
        addCompressedSize(fullHeader, static_cast<std::int64_t>(bytes.size()));
    }
    const SocketResult headerResult = sendHeader(fullHeader, type);
    if (headerResult != SocketResult::Success)
        return headerResult;
    beginBody(FILE_LIMIT_MS);
    Io::MemoryInputStream memory(bytes);
    if (isDeflated)
        return sendBody(memory, static_cast<std::int64_t>(bytes.size()));
    return sendBody(file, fileSize);
}

SocketResult MessageSender::deflate(Io::BinaryInputStream& source, std::int64_t size,
                                    Array<std::byte>& bytes) const
{
    Io::MemoryOutputStream memory(bytes, static_cast<std::size_t>(size));
    Io::ForwardingBinaryOutputStream target(memory);
    // The receiver inflates each piece by itself.
    Io::DeflateOutputStream stream(target, Io::DeflateOutputStream::DEFAULT_LEVEL,
                                   static_cast<int>(PIECE_SIZE));
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0) {
        // A large file takes a while, and whoever closes the socket waits for it.
        if (!m_socket.isOpen())
            return SocketResult::Error;
        if (m_limit.hasPassed())
            return SocketResult::Timeout;
        const std::int64_t piece = std::min(size, PIECE_SIZE);
        readOrThrow(source, buffer.data(), piece);
        stream.write(buffer.data(), piece);
        stream.flush();
        size -= piece;
    }
    stream.finish();
    return SocketResult::Success;
}

SocketResult MessageSender::sendBody(Io::BinaryInputStream& source, std::int64_t size)
{
    std::array<std::byte, PIECE_SIZE> buffer;
    while (size > 0) {
        const std::int64_t piece = std::min(size, PIECE_SIZE);
        readOrThrow(source, buffer.data(), piece);
        const SocketResult result = sendPiece(buffer.data(), piece);
        if (result != SocketResult::Success)
            return result;
        size -= piece;
    }
    return SocketResult::Success;
}

SocketResult MessageSender::sendPiece(const void* data, std::int64_t size)
{
    if (m_limit.hasPassed())
        return SocketResult::Timeout;
    return sendWhole(data, size, m_limit, Patience::TIME_LIMIT);
}

SocketResult MessageSender::sendWhole(const void* data, std::int64_t size, const TimeLimit& limit,
                                      Patience patience)
{
    for (;;) {
        m_lastCount = m_socket.send(data, size, limit, patience);
        if (m_lastCount == size)
            return SocketResult::Success;
        if (m_socket.isOpen() && limit.hasPassed())
            return SocketResult::Timeout;
        if (m_lastCount != 0 || !m_socket.isOpen())
            return SocketResult::Error;
    }
}

void MessageSender::beginBody(std::int64_t defaultLimitMs)
{
    m_socket.setTimeout(m_timeoutMs.value_or(defaultLimitMs) / 1000);
}

} // namespace Nolvex::Wx::Legacy::Detail
