// SPDX-License-Identifier: MIT
#pragma once

#include "Connections.h"

#include "../../NolvexLib/Io/Bytes.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "support/ProcessResources.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <utility>

namespace Nolvex::Wx::Legacy {

using Tests::element;
using Tests::header;
using Tests::RawPeerPair;
using Tests::RawSocket;

class OneFileContext : public ReadDataContext
{
public:
    explicit OneFileContext(Io::Path path) : m_path(std::move(path)) {}

    Io::Path getFilePath(const XmlString&) const override { return m_path; }

private:
    Io::Path m_path;
};

inline std::string deflated(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target);
    Tests::writeText(stream, text);
    stream.finish();
    return Tests::textOf(ArrayView<const std::byte>(target.bytes()));
}

// Returns a complete message of the given kind with a body of the given size.
inline std::string message(std::size_t kind, std::size_t size)
{
    const std::string body = Tests::incompressibleText(size);
    const std::string sizeText = std::to_string(size);
    switch (kind % 4) {
    case 0:
        return header(element("DataType", "0") + element("a", std::string(size, 'x')));
    case 1:
        return header(element("DataType", "1") + element("FileSize", sizeText) + element("Compressed", "0")) +
               body;
    case 2:
        return header(element("DataType", "2") + element("FileSize", sizeText) + element("Compressed", "0")) +
               body;
    default: {
        const std::string packed = deflated(body);
        return header(element("DataType", "1") + element("FileSize", sizeText) + element("Compressed", "1") +
                      element("CompressedSize", std::to_string(packed.size()))) +
               packed;
    }
    }
}

// Checks that each test leaves the process as it found it.
class HostilePeerFixture : public testing::Test
{
protected:
    HostilePeerFixture()
    {
        // The memory and handles that the first connection of the process leaves behind are not counted.
        RawPeerPair();
        Tests::freeDestroyedSockets();
        m_handles = Tests::openHandles();
        m_memory = Tests::privateMemory();
    }

    void TearDown() override
    {
        Tests::freeDestroyedSockets();
        EXPECT_LE(Tests::openHandles(), m_handles + HANDLE_TOLERANCE);
#ifndef NOLVEX_SANITIZED
        EXPECT_LE(Tests::privateMemory(), m_memory + 8'000'000);
#endif
    }

    TcpSocket acceptFrom(const RawSocket& /*peer*/)
    {
        return m_listener.acceptConnection(true);
    }

    RawSocket connect() const
    {
        return RawSocket::connected(m_listener.getLocalAddress()->getPort());
    }

    SocketResult read(TcpSocket& socket)
    {
        ReceivedData data;
        return socket.readData(data, m_context);
    }

    TcpListener m_listener{SocketAddress::localhost(0), 10};
    Tests::TemporaryFolder m_folder;
    OneFileContext m_context{m_folder.file(L"received")};

private:
    // Threads that have just ended keep some handles for a moment.
    static constexpr std::size_t HANDLE_TOLERANCE = 8;

    std::size_t m_handles = 0;
    std::size_t m_memory = 0;
};

} // namespace Nolvex::Wx::Legacy
