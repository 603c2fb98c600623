// SPDX-License-Identifier: MIT
// Peers that break the rules must not disturb other connections or leave any memory or handles behind.
#include "HostilePeerFixture.h"

#include "NolvexLib/Io/FileInputStream.h"
#include "support/SystemLimits.h"

#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using Clock = std::chrono::steady_clock;

using HostilePeerTest = HostilePeerFixture;

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

TEST_F(HostilePeerTest, headersWithoutEnd_leaveNoMemoryWithTheProcess)
{
    constexpr std::size_t LIMIT = 24 << 20;
    constexpr int PEERS = 3;
    const std::string endless(LIMIT + 1'000'000, 'x');
    const auto sendAll = [&] {
        std::vector<std::thread> threads;
        for (int i = 0; i < PEERS; ++i) {
            threads.emplace_back([&] { connect().send(endless); });
            threads.emplace_back([&] {
                TcpSocket socket = m_listener.acceptConnection(true);
                socket.setHeaderSizeLimit(LIMIT);
                XmlString text;
                EXPECT_EQ(socket.readString(text), SocketResult::Error);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    };
    [[maybe_unused]] const std::size_t before = Tests::heldMemory();
    // What is freed in the first round teaches the C library which blocks to keep in the next.
    sendAll();
    sendAll();
    Tests::freeDestroyedSockets();
#ifndef NOLVEX_SANITIZED
    EXPECT_LT(Tests::heldMemory(), before + LIMIT);
#endif
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

} // namespace
} // namespace Nolvex::Wx::Legacy
