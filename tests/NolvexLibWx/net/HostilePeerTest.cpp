// SPDX-License-Identifier: MIT
// Peers that break the rules: they must not disturb anybody, nor leave anything behind.
#include "Connections.h"

#include "../../NolvexLib/Io/Bytes.h"
#include "../../NolvexLib/Io/TemporaryFolder.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "NolvexLib/StopException.h"
#include "support/ProcessResources.h"
#include "support/SystemLimits.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::element;
using Tests::header;
using Tests::RawPeerPair;
using Tests::RawSocket;

using Clock = std::chrono::steady_clock;

class OneFileContext : public ReadDataContext
{
public:
    explicit OneFileContext(Io::Path path) : m_path(std::move(path)) {}

    Io::Path getFilePath(const XmlString&) const override { return m_path; }

private:
    Io::Path m_path;
};

std::string deflated(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target);
    Tests::writeText(stream, text);
    stream.finish();
    return Tests::textOf(ArrayView<const std::byte>(target.bytes()));
}

// A whole message of each kind, with a body of that size.
std::string message(std::size_t kind, std::size_t size)
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
class HostilePeerTest : public testing::Test
{
protected:
    HostilePeerTest()
    {
        // What the first connection of all leaves behind is not counted.
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
    // Threads that just ended keep some for a moment.
    static constexpr std::size_t HANDLE_TOLERANCE = 8;

    std::size_t m_handles = 0;
    std::size_t m_memory = 0;
};

TEST_F(HostilePeerTest, connectionThatEndsAnywhere_isAnErrorAndNothingElse)
{
    const auto messages = static_cast<std::size_t>(Tests::affordableRounds(200));
    for (std::size_t i = 0; i < messages; ++i) {
        const std::string whole = message(i, i % 7);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            RawSocket peer = connect();
            peer.send(std::string_view(whole).substr(0, size));
            peer.shutdownSending();
            TcpSocket socket = acceptFrom(peer);
            ASSERT_EQ(read(socket), SocketResult::Error) << i << ' ' << size;
            ASSERT_FALSE(socket.isOpen());
        }
        Tests::freeDestroyedSockets();
    }
}

TEST_F(HostilePeerTest, messageCutInTwoAnywhere_arrives)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const auto messages = static_cast<std::size_t>(Tests::affordableRounds(200));
    for (std::size_t i = 0; i < messages; ++i) {
        const std::string whole = message(i, i % 5 + 1);
        std::thread sender([&] {
            for (std::size_t size = 0; size <= whole.size(); ++size) {
                peer.send(std::string_view(whole).substr(0, size));
                std::this_thread::yield();
                peer.send(std::string_view(whole).substr(size));
            }
        });
        for (std::size_t size = 0; size <= whole.size(); ++size)
            EXPECT_EQ(read(socket), SocketResult::Success) << i << ' ' << size;
        sender.join();
    }
}

TEST_F(HostilePeerTest, connectionResetAnywhere_losesNothingThatWasWhole)
{
    std::mt19937 random(4711);
    for (std::size_t i = 0; i < 1000; ++i) {
        const std::string first = message(i, 100);
        const std::string second = message(i / 4, 1 + random() % 100'000);
        RawSocket peer = connect();
        TcpSocket socket = acceptFrom(peer);
        peer.send(first);
        ASSERT_EQ(read(socket), SocketResult::Success) << i;
        std::thread sender([&] {
            peer.send(std::string_view(second).substr(0, random() % second.size()));
            peer.reset();
        });
        EXPECT_EQ(read(socket), SocketResult::Error) << i;
        sender.join();
        EXPECT_EQ(socket.writeString({}), SocketResult::Error);
        Tests::freeDestroyedSockets();
    }
}

TEST_F(HostilePeerTest, peerThatSendsByteByByte_isUnderstood)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string whole = message(2, 5);
    std::thread sender([&] {
        for (std::size_t i = 0; i < whole.size(); ++i) {
            peer.send(std::string_view(whole).substr(i, 1));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
    EXPECT_EQ(read(socket), SocketResult::Success);
    sender.join();
}

// Texts in place of a size; none of them is one.
const std::vector<std::string>& badSizes()
{
    static const std::vector<std::string> sizes = {"",
                                                   " ",
                                                   "+0",
                                                   "+1",
                                                   " 1",
                                                   "1 ",
                                                   "\t1",
                                                   "1\n",
                                                   "1\r\n",
                                                   "0x10",
                                                   "0X1",
                                                   "10h",
                                                   "1e3",
                                                   "1E0",
                                                   "1.",
                                                   "1.0",
                                                   ".5",
                                                   "1,0",
                                                   "1_000",
                                                   "1'000",
                                                   "--1",
                                                   "-",
                                                   "+",
                                                   "- 1",
                                                   "1-",
                                                   "1+1",
                                                   "(1)",
                                                   "\"1\"",
                                                   "one",
                                                   "abc",
                                                   "12abc",
                                                   "abc12",
                                                   "1a",
                                                   "inf",
                                                   "-inf",
                                                   "nan",
                                                   "NaN",
                                                   "true",
                                                   "false",
                                                   "null",
                                                   "0b1",
                                                   "0o7",
                                                   "#1",
                                                   "$1",
                                                   "1%",
                                                   "1L",
                                                   "1u",
                                                   "1ull",
                                                   "\xD9\xA1",
                                                   "\xEF\xBC\x91",
                                                   "\xC2\xB2",
                                                   "\xE2\x91\xA0",
                                                   "\xC2\xA0"
                                                   "1",
                                                   "9223372036854775808",
                                                   "-9223372036854775809",
                                                   "18446744073709551616",
                                                   "18446744073709551617",
                                                   "99999999999999999999999",
                                                   "<b>1</b>",
                                                   "&lt;"};
    return sizes;
}

TEST_F(HostilePeerTest, sizesInOddSpellings_areErrors)
{
    ASSERT_EQ(badSizes().size(), 60u);
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string type = element("DataType", "1");
    const std::string size = element("FileSize", "1");
    for (const std::string& bad : badSizes()) {
        peer.send(header(element("DataType", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "DataType " << bad;
        peer.send(header(type + element("FileSize", bad) + element("Compressed", "0")));
        EXPECT_EQ(read(socket), SocketResult::Error) << "FileSize " << bad;
        peer.send(header(type + size + element("Compressed", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "Compressed " << bad;
        peer.send(header(type + size + element("Compressed", "1") + element("CompressedSize", bad)));
        EXPECT_EQ(read(socket), SocketResult::Error) << "CompressedSize " << bad;
    }
    peer.send(message(0, 1));
    EXPECT_EQ(read(socket), SocketResult::Success);
}

TEST_F(HostilePeerTest, typeThatWouldWrap_isAnError)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    peer.send(header(element("DataType", "4294967297")));
    EXPECT_EQ(read(socket), SocketResult::Error);
    peer.send(header(element("DataType", "4294967296")));
    EXPECT_EQ(read(socket), SocketResult::Error);
}

TEST_F(HostilePeerTest, metadataMissingOrDoubled_isAnError)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string size = element("FileSize", "0");
    const std::string compression = element("Compressed", "0");
    const std::string deflate = element("Compressed", "1");
    const std::string compressedSize = element("CompressedSize", "0");
    for (const std::string& metadata :
         {std::string(), size, compression, size + size + compression, size + compression + compression,
          size + deflate, size + deflate + compressedSize + compressedSize,
          element("x", size + compression)}) {
        peer.send(header(element("DataType", "1") + metadata));
        EXPECT_EQ(read(socket), SocketResult::Error) << metadata;
    }
    for (const std::string& metadata : {std::string(), size, compression, size + size + compression,
                                        element("FileSize", "-1") + compression}) {
        peer.send(header(element("DataType", "2") + metadata));
        EXPECT_EQ(read(socket), SocketResult::Error) << metadata;
    }
    peer.send(message(0, 1));
    EXPECT_EQ(read(socket), SocketResult::Success);
}

TEST_F(HostilePeerTest, sizeThatNeverArrives_costsNoMemory)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    peer.send(
        header(element("DataType", "2") + element("FileSize", "2147483647") + element("Compressed", "0")) +
        "some");
    peer.shutdownSending();
    ReceivedData data;
    EXPECT_EQ(socket.readData(data, m_context), SocketResult::Error);
    EXPECT_EQ(data.get<ReceivedRawData>().data.size(), 4u);
    EXPECT_LE(data.get<ReceivedRawData>().data.capacity(), 4u << 20);
}

TEST_F(HostilePeerTest, silenceInsteadOfRawData_endsAfterFiveSeconds)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    peer.send(header(element("DataType", "2") + element("FileSize", "10") + element("Compressed", "0")));
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(read(socket), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 4900);
    EXPECT_LT(Tests::elapsedMs(start), 6000);
}

TEST_F(HostilePeerTest, deflatedBombs_areNotBlownUp)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string packed = deflated(std::string(50'000'000, '\0'));
    peer.send(header(element("DataType", "1") + element("FileSize", "1000000") + element("Compressed", "1") +
                     element("CompressedSize", std::to_string(packed.size()))) +
              packed);
    EXPECT_EQ(read(socket), SocketResult::Error);
    EXPECT_LE(std::filesystem::file_size(m_folder.file(L"received").native()), 1'000'000u);
}

TEST_F(HostilePeerTest, deflatedDataWithAnyBitFlipped_isAnErrorOrUnchanged)
{
    const std::string text = "some text that is long enough to be compressed, compressed, compressed";
    const std::string packed = deflated(text);
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    for (std::size_t bit = 0; bit < packed.size() * 8; ++bit) {
        std::string broken = packed;
        broken[bit / 8] = static_cast<char>(broken[bit / 8] ^ (1 << bit % 8));
        peer.send(header(element("DataType", "1") + element("FileSize", std::to_string(text.size())) +
                         element("Compressed", "1") +
                         element("CompressedSize", std::to_string(broken.size()))) +
                  broken);
        if (read(socket) != SocketResult::Success)
            continue;
        Io::FileInputStream file(m_folder.file(L"received"));
        EXPECT_EQ(Tests::readAll(file), text) << bit;
    }
    EXPECT_TRUE(socket.isOpen());
}

TEST_F(HostilePeerTest, placesWhereNothingCanBeWritten_areErrors)
{
    const OneFileContext folder(m_folder.path());
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    peer.send(message(1, 10));
    ReceivedData data;
    EXPECT_EQ(socket.readData(data, folder), SocketResult::Error);
}

TEST_F(HostilePeerTest, fullDisk_isAnError)
{
    const OneFileContext context(Tests::fileOnAFullDisk());
    if (Tests::fileOnAFullDisk().isEmpty())
        GTEST_SKIP() << "This system has no disk that is always full.";
    for (const std::size_t size : {1u, 100'000u}) {
        for (const std::size_t kind : {1u, 3u}) {
            RawSocket peer = connect();
            TcpSocket socket = acceptFrom(peer);
            std::thread sender([&] { peer.send(message(kind, size)); });
            ReceivedData data;
            EXPECT_EQ(socket.readData(data, context), SocketResult::Error) << size << ' ' << kind;
            socket.close();
            sender.join();
        }
    }
}

TEST_F(HostilePeerTest, threeThousandConnections_leaveNothing)
{
    for (int i = 0; i < 3000; ++i) {
        RawSocket peer = connect();
        TcpSocket socket = acceptFrom(peer);
        peer.send(message(0, 10));
        ASSERT_EQ(read(socket), SocketResult::Success) << i;
        ASSERT_EQ(socket.writeString({}), SocketResult::Success) << i;
        if (i % 100 == 0)
            Tests::freeDestroyedSockets();
    }
}

TEST_F(HostilePeerTest, silentPeers_doNotDisturbOthers)
{
    std::vector<RawSocket> peers;
    std::vector<std::thread> readers;
    std::atomic<int> errors = 0;
    for (int i = 0; i < 200; ++i) {
        peers.push_back(connect());
        readers.emplace_back([&errors, socket = acceptFrom(peers.back())]() mutable {
            XmlString text;
            if (socket.readString(text) == SocketResult::Error)
                ++errors;
        });
    }
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    const std::string good = message(2, 20'000'000);
    std::thread sender([&] { peer.send(good); });
    EXPECT_EQ(read(socket), SocketResult::Success);
    sender.join();
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(errors, 200);
}

TEST_F(HostilePeerTest, signals_areNoReasonToGiveUp)
{
    Tests::whileInterrupted([&] {
        for (int i = 0; i < 5; ++i) {
            RawSocket listener = RawSocket::listening();
            TcpClient client(SocketAddress::localhost(listener.port()), 10);
            ASSERT_TRUE(client.isOpen());
            // The peer runs on a thread that nobody interrupts.
            std::thread answerer([&] {
                RawSocket peer = listener.accept();
                peer.receiveText();
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                peer.send(message(2, 1000));
                peer.receiveAll();
            });
            EXPECT_EQ(client.writeString({}), SocketResult::Success);
            EXPECT_EQ(read(client), SocketResult::Success);
            const std::string data(5'000'000, 'x');
            EXPECT_EQ(
                client.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData),
                SocketResult::Success);
            client.close();
            answerer.join();
        }
    });
}

TEST_F(HostilePeerTest, signals_doNotProlongTheTimeout)
{
    RawSocket peer = connect();
    TcpSocket socket = acceptFrom(peer);
    Tests::whileInterrupted([&] {
        const Clock::time_point start = Clock::now();
        EXPECT_EQ(read(socket), SocketResult::Error);
        EXPECT_GE(Tests::elapsedMs(start), 900);
        EXPECT_LT(Tests::elapsedMs(start), 1500);
    });
    EXPECT_TRUE(socket.isOpen());
}

TEST_F(HostilePeerTest, descriptorsBeyondTheToolkitsReach_areRefused)
{
    RawSocket raw = connect();
    RawSocket rawListener = RawSocket::listening();
    const Tests::ScarceDescriptors scarce;
    if (!scarce.isEffective())
        GTEST_SKIP() << "Descriptors of 1,024 and more do not occur or do not matter.";
    EXPECT_FALSE(acceptFrom(raw).isOpen());
    EXPECT_EQ(raw.receive(1), "");
    EXPECT_FALSE(TcpClient(SocketAddress::localhost(rawListener.port()), 1).isOpen());
    EXPECT_FALSE(TcpListener(SocketAddress::localhost(0), 1).isOpen());
    EXPECT_FALSE(UdpSocket(SocketAddress::localhost(0)).isOpen());
}

TEST_F(HostilePeerTest, sockets_areNotInheritedByChildren)
{
    const std::size_t before = Tests::inheritableSockets();
    const Tests::ConnectedPair pair;
    const UdpSocket datagrams(SocketAddress::anyAddress(0));
    EXPECT_EQ(Tests::inheritableSockets(), before);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
