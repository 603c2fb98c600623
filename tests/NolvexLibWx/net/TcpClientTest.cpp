// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpClient.h"

#include "Connections.h"
#include "support/SystemLimits.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::RawSocket;

using Clock = std::chrono::steady_clock;

unsigned short portThatNobodyListensTo()
{
    return RawSocket::listening().port();
}

TEST(TcpClientTest, constructor_whereNobodyListens_isNotOpen)
{
    const Clock::time_point start = Clock::now();
    TcpClient client(SocketAddress::localhost(portThatNobodyListensTo()), 10);
    EXPECT_FALSE(client.isOpen());
    EXPECT_FALSE(client.getPeerAddress());
    XmlString text;
    EXPECT_EQ(client.readString(text), SocketResult::Error);
    EXPECT_EQ(client.writeString(text), SocketResult::Error);
    EXPECT_LT(Tests::elapsedMs(start), 5000);
}

// Listens on all addresses of this computer: a connection to the any-address would reach it on Linux.
struct OpenListener
{
    TcpListener listener{SocketAddress::anyAddress(0), 0};
    unsigned short port = listener.getLocalAddress()->getPort();

    bool wasReached() { return listener.acceptConnection(false).isOpen(); }
};

TEST(TcpClientTest, addressWithoutAHost_isNeverConnectedTo)
{
    OpenListener here;
    for (const wchar_t* host :
         {L"", L" ", L"no such host", L"a..b", L"0.0.0.0", L"0", L"no-such-host.invalid"}) {
        EXPECT_FALSE(TcpClient(SocketAddress(host, here.port), 1).isOpen()) << host;
        EXPECT_FALSE(here.wasReached()) << host;
    }
    const String hostAndPort = L"127.0.0.1:" + std::to_wstring(here.port);
    EXPECT_FALSE(TcpClient(SocketAddress(hostAndPort, here.port), 1).isOpen());
    EXPECT_FALSE(TcpClient(SocketAddress::anyAddress(here.port), 1).isOpen());
    EXPECT_FALSE(TcpClient(SocketAddress(), 1).isOpen());
    EXPECT_FALSE(here.wasReached());
}

TEST(TcpClientTest, connect_toAnAddressWithoutAHost_fails)
{
    OpenListener here;
    TcpClient client(SocketAddress::localhost(here.port), 10);
    ASSERT_TRUE(here.wasReached());
    EXPECT_FALSE(client.connect(SocketAddress::anyAddress(here.port)));
    EXPECT_FALSE(here.wasReached());
}

TEST(TcpClientTest, connect_toAnAddressWithoutAHost_leavesTheConnection)
{
    Tests::ConnectedPair pair;
    EXPECT_FALSE(pair.client.connect(SocketAddress()));
    EXPECT_TRUE(pair.client.isOpen());
    // The system gives a descriptor that became free to the next socket, which would get the text.
    const Tests::ConnectedPair later;
    ASSERT_EQ(pair.client.writeString({}), SocketResult::Success);
    XmlString text;
    EXPECT_EQ(pair.server.readString(text), SocketResult::Success);
}

// A listener whose queue is full. On some systems further peers then have to wait.
struct FullQueue
{
    FullQueue()
    {
        Clock::time_point start;
        do {
            start = Clock::now();
            clients.emplace_back(SocketAddress::localhost(listener.port()), 1);
        } while (clients.back().isOpen() && clients.size() < 100);
        waitedMs = clients.back().isOpen() ? 0 : Tests::elapsedMs(start);
    }

    bool letsWait() const { return waitedMs >= 100; }

    RawSocket listener = RawSocket::listening(0, 0);
    std::vector<TcpClient> clients;
    // The time for which the last client waited.
    std::int64_t waitedMs = 0;
};

TEST(TcpClientTest, constructor_whereNobodyAnswers_endsWithTheTime)
{
    const FullQueue queue;
    ASSERT_FALSE(queue.clients.back().isOpen());
    if (!queue.letsWait())
        GTEST_SKIP() << "This system refuses a connection where others let it wait.";
    EXPECT_GE(queue.waitedMs, 900);
    EXPECT_LT(queue.waitedMs, 1500);
}

TEST(TcpClientTest, signals_areHandledWhileConnecting)
{
    const FullQueue queue;
    if (!queue.letsWait())
        GTEST_SKIP() << "This system refuses a connection where others let it wait.";
    const int handled = Tests::whileInterrupted([&] {
        const Clock::time_point start = Clock::now();
        EXPECT_FALSE(TcpClient(SocketAddress::localhost(queue.listener.port()), 1).isOpen());
        EXPECT_GE(Tests::elapsedMs(start), 900);
        EXPECT_LT(Tests::elapsedMs(start), 1500);
    });
    if (handled < 0)
        GTEST_SKIP() << "This system has no signals.";
    // A signal comes every few milliseconds. If connecting blocked signals, at most two would be pending at
    // the end.
    EXPECT_GT(handled, 20);
}

TEST(TcpClientTest, connect_hasTheTimeThatTheLastStepLeft)
{
    const FullQueue queue;
    if (!queue.letsWait())
        GTEST_SKIP() << "This system refuses a connection where others let it wait.";
    const RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    // Writing a text leaves the client a limit of one second instead of the constructor's ten seconds.
    ASSERT_EQ(client.writeString({}), SocketResult::Success);
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(client.connect(SocketAddress::localhost(queue.listener.port())));
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 1500);
}

TEST(TcpClientTest, constructor_withoutTime_waitsForAMomentOnly)
{
    const FullQueue queue;
    if (!queue.letsWait())
        GTEST_SKIP() << "This system refuses a connection where others let it wait.";
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(TcpClient(SocketAddress::localhost(queue.listener.port()), 0).isOpen());
    EXPECT_LT(Tests::elapsedMs(start), 600);
}

TEST(TcpClientTest, connect_ofAClientThatFailed_doesNotReviveIt)
{
    const RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(portThatNobodyListensTo()), 1);
    EXPECT_FALSE(client.connect(SocketAddress::localhost(listener.port())));
    EXPECT_FALSE(client.isOpen());
}

TEST(TcpClientTest, connect_again_changesThePeer)
{
    RawSocket first = RawSocket::listening();
    RawSocket second = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(first.port()), 10);
    RawSocket firstPeer = first.accept();
    ASSERT_TRUE(client.connect(SocketAddress::localhost(second.port())));
    EXPECT_EQ(firstPeer.receive(1), "");
    RawSocket secondPeer = second.accept();
    EXPECT_TRUE(client.isOpen());
    EXPECT_EQ(client.getPeerAddress()->getPort(), second.port());
    EXPECT_EQ(client.writeString({}), SocketResult::Success);
    EXPECT_EQ(secondPeer.receiveText(), Tests::header(Tests::element("DataType", "0")));
}

TEST(TcpClientTest, connect_whereNobodyListens_failsAndMayBeRepeated)
{
    RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    EXPECT_FALSE(client.connect(SocketAddress::localhost(portThatNobodyListensTo())));
    EXPECT_TRUE(client.connect(SocketAddress::localhost(listener.port())));
    EXPECT_EQ(client.writeString({}), SocketResult::Success);
}

TEST(TcpClientTest, useAfterAConnectThatFailed_isAnError)
{
    RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    EXPECT_FALSE(client.connect(SocketAddress::localhost(portThatNobodyListensTo())));
    XmlString text;
    EXPECT_EQ(client.writeString(text), SocketResult::Error);
    EXPECT_EQ(client.readString(text), SocketResult::Error);
    EXPECT_FALSE(client.isOpen());
}

TEST(TcpClientTest, connect_afterClose_fails)
{
    RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    client.close();
    EXPECT_FALSE(client.connect(SocketAddress::localhost(listener.port())));
}

TEST(TcpClientTest, connect_ofAnAcceptedConnection_fails)
{
    Tests::ConnectedPair pair;
    static_cast<TcpSocket&>(pair.client) = std::move(pair.server);
    EXPECT_TRUE(pair.client.isOpen());
    EXPECT_FALSE(pair.client.connect(*pair.listener.getLocalAddress()));
}

TEST(TcpClientTest, move_takesTheConnection)
{
    Tests::ConnectedPair pair;
    TcpClient moved(std::move(pair.client));
    EXPECT_TRUE(moved.isOpen());
    EXPECT_EQ(moved.writeString({}), SocketResult::Success);
    XmlString text;
    EXPECT_EQ(pair.server.readString(text), SocketResult::Success);
}

TEST(TcpClientTest, connect_afterALimitedWrite_succeedsEachTime)
{
    RawSocket listener = RawSocket::listening();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(
            client.writeRawMemory(Tests::viewOf("x"), {}, DataCompression::None, DataType::RawData, 3000),
            SocketResult::Success);
        ASSERT_TRUE(client.connect(SocketAddress::localhost(listener.port()))) << i;
    }
    Tests::freeDestroyedSockets();
}

TEST(TcpClientTest, connectThatFailed_leavesNoSocketToChildren)
{
    const RawSocket listener = RawSocket::listening();
    const std::size_t before = Tests::inheritableSockets();
    TcpClient client(SocketAddress::localhost(listener.port()), 10);
    EXPECT_FALSE(client.connect(SocketAddress::localhost(portThatNobodyListensTo())));
    EXPECT_EQ(Tests::inheritableSockets(), before);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
