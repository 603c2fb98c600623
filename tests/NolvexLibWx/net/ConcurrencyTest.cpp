// SPDX-License-Identifier: MIT
// Many threads use the sockets at once. These tests also run under the thread sanitizer.
#include "Connections.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

TEST(ConcurrencyTest, tenThousandConnections_openAndCloseOnSeveralThreads)
{
    constexpr int THREADS = 4;
    constexpr int ROUNDS = 2500;
    TcpListener listener(SocketAddress::localhost(0), 10);
    const SocketAddress address = *listener.getLocalAddress();
    std::atomic<int> exchanged = 0;
    std::array<std::thread, THREADS> threads;
    for (std::thread& thread : threads) {
        thread = std::thread([&] {
            for (int i = 0; i < ROUNDS; ++i) {
                TcpClient client(address, 10);
                // The accepted peer may belong to another thread, because the other threads accept as well.
                TcpSocket server = listener.acceptConnection(true);
                XmlString text;
                if (server.writeString({}) == SocketResult::Success && server.isOpen() && client.isOpen())
                    ++exchanged;
                server.close();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(exchanged, THREADS * ROUNDS);
}

TEST(ConcurrencyTest, closeAndQuestions_duringTransfers_doNoHarm)
{
    for (int round = 0; round < 200; ++round) {
        Tests::ConnectedPair pair;
        const std::string data(1'000'000, 'x');
        std::thread sender([&] {
            static_cast<void>(pair.client.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None,
                                                         DataType::RawData));
        });
        std::thread receiver([&] {
            ReceivedData received;
            static_cast<void>(pair.server.readData(received, ReadDataContext()));
        });
        std::thread questioner([&] {
            while (pair.client.isOpen() && pair.server.isOpen())
                std::this_thread::yield();
        });
        std::thread closer([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(round * 10));
            pair.client.close();
            pair.server.close();
        });
        for (std::thread* thread : {&sender, &receiver, &questioner, &closer})
            thread->join();
        EXPECT_FALSE(pair.client.isOpen());
        EXPECT_FALSE(pair.server.isOpen());
    }
}

TEST(ConcurrencyTest, connections_mayMoveFromThreadToThread)
{
    for (int round = 0; round < 100; ++round) {
        Tests::ConnectedPair pair;
        std::thread first([&] { EXPECT_EQ(pair.client.writeString({}), SocketResult::Success); });
        std::thread second([socket = std::move(pair.server)]() mutable {
            XmlString text;
            EXPECT_EQ(socket.readString(text), SocketResult::Success);
            EXPECT_EQ(socket.writeString(text), SocketResult::Success);
        });
        first.join();
        XmlString text;
        EXPECT_EQ(pair.client.readString(text), SocketResult::Success);
        second.join();
    }
}

} // namespace
} // namespace Nolvex::Wx::Legacy
