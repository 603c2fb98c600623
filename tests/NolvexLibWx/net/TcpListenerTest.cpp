// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpListener.h"

#include "Connections.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::RawSocket;

using Clock = std::chrono::steady_clock;

unsigned short portOf(const TcpListener& listener)
{
    return listener.getLocalAddress()->getPort();
}

TEST(TcpListenerTest, constructor_withPort0_listensOnOneTheSystemChose)
{
    const TcpListener listener(SocketAddress::localhost(0), 1);
    ASSERT_TRUE(listener.isOpen());
    EXPECT_EQ(listener.getLocalAddress()->toString(), L"127.0.0.1");
    EXPECT_NE(portOf(listener), 0);
}

TEST(TcpListenerTest, constructor_onAPortThatIsTaken_isNotOpen)
{
    const RawSocket other = RawSocket::listening();
    TcpListener listener(SocketAddress::localhost(other.port()), 1);
    EXPECT_FALSE(listener.isOpen());
    EXPECT_FALSE(listener.getLocalAddress());
    EXPECT_FALSE(listener.acceptConnection(true).isOpen());
    listener.killPendingConnections();
    listener.close();
}

TEST(TcpListenerTest, constructor_onAnAddressOfAnotherComputer_isNotOpen)
{
    EXPECT_FALSE(TcpListener(SocketAddress(L"192.0.2.1", 0), 1).isOpen());
    EXPECT_FALSE(TcpListener(SocketAddress(), 1).isOpen());
}

TEST(TcpListenerTest, acceptConnection_withoutWaiting_returnsAtOnce)
{
    TcpListener listener(SocketAddress::localhost(0), 600);
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(listener.acceptConnection(false).isOpen());
    EXPECT_LT(Tests::elapsedMs(start), 50);
}

TEST(TcpListenerTest, acceptConnection_waiting_endsWithTheTime)
{
    TcpListener listener(SocketAddress::localhost(0), 1);
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(listener.acceptConnection(true).isOpen());
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 1500);
    EXPECT_TRUE(listener.isOpen());
}

TEST(TcpListenerTest, acceptConnection_waiting_getsOneThatComesMeanwhile)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    RawSocket peer;
    std::thread connector([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        peer = RawSocket::connected(portOf(listener));
    });
    TcpSocket socket = listener.acceptConnection(true);
    connector.join();
    EXPECT_TRUE(socket.isOpen());
    EXPECT_EQ(socket.writeString({}), SocketResult::Success);
    EXPECT_FALSE(peer.receiveText().empty());
}

TEST(TcpListenerTest, acceptConnection_keepsTheOrder)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    RawSocket first = RawSocket::connected(portOf(listener));
    RawSocket second = RawSocket::connected(portOf(listener));
    TcpSocket firstEnd = listener.acceptConnection(true);
    TcpSocket secondEnd = listener.acceptConnection(true);
    EXPECT_EQ(firstEnd.getPeerAddress()->getPort(), first.port());
    EXPECT_EQ(secondEnd.getPeerAddress()->getPort(), second.port());
}

TEST(TcpListenerTest, acceptConnection_ofAPeerThatHasGone_isReadToItsEnd)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    {
        RawSocket peer = RawSocket::connected(portOf(listener));
        peer.send(Tests::header(Tests::element("DataType", "0")));
    }
    TcpSocket socket = listener.acceptConnection(true);
    XmlString text;
    EXPECT_EQ(socket.readString(text), SocketResult::Success);
    EXPECT_EQ(socket.readString(text), SocketResult::Error);
}

TEST(TcpListenerTest, quickConnections_areTakenInAMoment)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    const Clock::time_point start = Clock::now();
    std::vector<RawSocket> peers;
    for (int i = 0; i < 200; ++i) {
        peers.push_back(RawSocket::connected(portOf(listener)));
        ASSERT_TRUE(peers.back());
    }
    EXPECT_LT(Tests::elapsedMs(start), 2000);
    for (int i = 0; i < 200; ++i)
        EXPECT_TRUE(listener.acceptConnection(true).isOpen());
    Tests::freeDestroyedSockets();
}

TEST(TcpListenerTest, killPendingConnections_dropsThoseThatWait)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    RawSocket first = RawSocket::connected(portOf(listener));
    RawSocket second = RawSocket::connected(portOf(listener));
    listener.killPendingConnections();
    EXPECT_EQ(first.receive(1), "");
    EXPECT_EQ(second.receive(1), "");
    EXPECT_FALSE(listener.acceptConnection(false).isOpen());
    RawSocket third = RawSocket::connected(portOf(listener));
    EXPECT_TRUE(listener.acceptConnection(true).isOpen());
}

TEST(TcpListenerTest, killPendingConnections_withoutAny_returnsAtOnce)
{
    TcpListener listener(SocketAddress::localhost(0), 600);
    const Clock::time_point start = Clock::now();
    listener.killPendingConnections();
    EXPECT_LT(Tests::elapsedMs(start), 50);
    EXPECT_TRUE(listener.isOpen());
}

TEST(TcpListenerTest, close_isFinalAndRefusesConnections)
{
    TcpListener listener(SocketAddress::localhost(0), 10);
    const unsigned short port = portOf(listener);
    listener.close();
    listener.close();
    EXPECT_FALSE(listener.isOpen());
    EXPECT_FALSE(RawSocket::connected(port));
    EXPECT_FALSE(listener.acceptConnection(true).isOpen());
}

TEST(TcpListenerTest, closeOnAnotherThread_endsAnAccept)
{
    TcpListener listener(SocketAddress::localhost(0), 600);
    Clock::time_point closing;
    std::thread closer([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        closing = Clock::now();
        listener.close();
    });
    EXPECT_FALSE(listener.acceptConnection(true).isOpen());
    const Clock::time_point end = Clock::now();
    closer.join();
    EXPECT_LT(end - closing, std::chrono::milliseconds(200));
}

TEST(TcpListenerTest, isOpen_duringAnAccept_doesNotWait)
{
    TcpListener listener(SocketAddress::localhost(0), 1);
    std::atomic<bool> isOver = false;
    std::thread acceptor([&] {
        EXPECT_FALSE(listener.acceptConnection(true).isOpen());
        isOver = true;
    });
    // The state is read again and again while the accept begins, waits and ends.
    while (!isOver) {
        const Clock::time_point start = Clock::now();
        EXPECT_TRUE(listener.isOpen());
        EXPECT_LT(Tests::elapsedMs(start), 500);
        std::this_thread::yield();
    }
    acceptor.join();
}

TEST(TcpListenerTest, killPendingConnections_leavesTheTimeout)
{
    TcpListener listener(SocketAddress::localhost(0), 1);
    const RawSocket pending = RawSocket::connected(portOf(listener));
    listener.killPendingConnections();
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(listener.acceptConnection(true).isOpen());
    EXPECT_GE(Tests::elapsedMs(start), 900);
}

TEST(TcpListenerTest, destruction_releasesThePort)
{
    unsigned short port = 0;
    {
        const TcpListener listener(SocketAddress::localhost(0), 1);
        port = portOf(listener);
    }
    EXPECT_TRUE(TcpListener(SocketAddress::localhost(port), 1).isOpen());
}

TEST(TcpListenerTest, moves_swapTheServers)
{
    TcpListener first(SocketAddress::localhost(0), 1);
    TcpListener second(SocketAddress::localhost(0), 1);
    const unsigned short firstPort = portOf(first);
    const unsigned short secondPort = portOf(second);
    first = std::move(second);
    EXPECT_EQ(portOf(first), secondPort);
    EXPECT_EQ(portOf(second), firstPort); // NOLINT(bugprone-use-after-move): it holds the target's
    const TcpListener third(std::move(first));
    EXPECT_EQ(portOf(third), secondPort);
    EXPECT_FALSE(first.isOpen()); // NOLINT(bugprone-use-after-move): allowed
}

} // namespace
} // namespace Nolvex::Wx::Legacy
