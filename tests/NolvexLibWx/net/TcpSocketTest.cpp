// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/TcpSocket.h"

#include "Connections.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <limits>
#include <thread>
#include <utility>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::ConnectedPair;
using Tests::element;
using Tests::header;
using Tests::RawPeerPair;
using Tests::tree;

using Clock = std::chrono::steady_clock;

TEST(TcpSocketTest, connection_isOpenAtBothEnds)
{
    const ConnectedPair pair;
    EXPECT_TRUE(pair.client.isOpen());
    EXPECT_TRUE(pair.server.isOpen());
}

TEST(TcpSocketTest, getPeerAddress_isThatOfTheOtherEnd)
{
    ConnectedPair pair;
    const Optional<SocketAddress> address = pair.client.getPeerAddress();
    ASSERT_TRUE(address);
    EXPECT_EQ(address->toString(), L"127.0.0.1");
    EXPECT_EQ(address->getPort(), pair.listener.getLocalAddress()->getPort());
    ASSERT_TRUE(pair.server.getPeerAddress());
    EXPECT_NE(pair.server.getPeerAddress()->getPort(), address->getPort());
}

TEST(TcpSocketTest, close_isFinalAndMayBeRepeated)
{
    ConnectedPair pair;
    pair.client.close();
    pair.client.close();
    EXPECT_FALSE(pair.client.isOpen());
    EXPECT_FALSE(pair.client.getPeerAddress());
    XmlString text;
    EXPECT_EQ(pair.client.readString(text), SocketResult::Error);
    EXPECT_EQ(pair.client.writeString(text), SocketResult::Error);
    EXPECT_EQ(pair.client.writeFile({}, {}, DataCompression::None, DataType::File), SocketResult::Error);
    EXPECT_EQ(pair.client.writeRawMemory({}, {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
}

TEST(TcpSocketTest, close_isSeenByThePeer)
{
    RawPeerPair pair;
    pair.socket.close();
    EXPECT_EQ(pair.peer.receive(1), "");
}

TEST(TcpSocketTest, peerThatCloses_closesOnTheNextRead)
{
    RawPeerPair pair;
    pair.peer.close();
    XmlString text;
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Error);
    EXPECT_FALSE(pair.socket.isOpen());
    EXPECT_EQ(pair.socket.writeString(text), SocketResult::Error);
}

TEST(TcpSocketTest, peerThatResets_closesOnTheNextRead)
{
    RawPeerPair pair;
    pair.peer.reset();
    XmlString text;
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Error);
    EXPECT_FALSE(pair.socket.isOpen());
}

TEST(TcpSocketTest, peerThatResets_endsWrites)
{
    RawPeerPair pair;
    pair.peer.reset();
    const std::string data(1'000'000, 'x');
    EXPECT_EQ(pair.socket.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
    EXPECT_FALSE(pair.socket.isOpen());
}

TEST(TcpSocketTest, messageBeforeTheClose_isStillRead)
{
    RawPeerPair pair;
    pair.peer.send(header(element("DataType", "0") + element("a", "b")));
    pair.peer.close();
    XmlString text;
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Success);
    EXPECT_EQ(text.getChild(L"a"), String(L"b"));
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Error);
}

TEST(TcpSocketTest, moveConstruction_takesTheConnection)
{
    ConnectedPair pair;
    TcpSocket moved(std::move(pair.server));
    EXPECT_FALSE(pair.server.isOpen()); // NOLINT(bugprone-use-after-move): allowed
    EXPECT_TRUE(moved.isOpen());
    ASSERT_EQ(pair.client.writeString(tree(L"a", L"b")), SocketResult::Success);
    XmlString text;
    EXPECT_EQ(moved.readString(text), SocketResult::Success);
}

TEST(TcpSocketTest, moveAssignment_leavesTheFormerConnectionInTheSource)
{
    RawPeerPair first;
    RawPeerPair second;
    {
        TcpSocket source(std::move(second.socket));
        static_cast<TcpSocket&>(first.socket) = std::move(source);
        EXPECT_TRUE(first.socket.isOpen());
        EXPECT_TRUE(source.isOpen()); // NOLINT(bugprone-use-after-move): it holds the target's connection
        ASSERT_EQ(source.writeString({}), SocketResult::Success);
        EXPECT_EQ(first.peer.receiveText(), header(element("DataType", "0")));
    }
    EXPECT_EQ(first.peer.receive(1), "");
    EXPECT_EQ(first.socket.writeString({}), SocketResult::Success);
    EXPECT_EQ(second.peer.receiveText(), header(element("DataType", "0")));
}

TEST(TcpSocketTest, moveAssignment_toItself_changesNothing)
{
    ConnectedPair pair;
    TcpSocket& same = pair.server;
    pair.server = std::move(same);
    EXPECT_TRUE(pair.server.isOpen());
}

TEST(TcpSocketTest, closedSocket_staysClosedWhenMoved)
{
    ConnectedPair pair;
    pair.server.close();
    const TcpSocket moved(std::move(pair.server));
    EXPECT_FALSE(moved.isOpen());
}

// Reports the beginning of a message's body.
class AnnouncingContext : public ReadDataContext
{
public:
    void onReceiveStart(const XmlString&) const override { m_began.set_value(); }

    void waitForBody() { m_began.get_future().wait(); }

private:
    mutable std::promise<void> m_began;
};

TEST(TcpSocketTest, closeOnAnotherThread_endsARead)
{
    RawPeerPair pair;
    // The read waits for a body that never comes, since a read without a body would end too soon.
    pair.peer.send(header(element("DataType", "2") + element("FileSize", "5") + element("Compressed", "0")));
    AnnouncingContext context;
    Clock::time_point closing;
    std::thread closer([&] {
        context.waitForBody();
        closing = Clock::now();
        pair.socket.close();
    });
    ReceivedData data;
    EXPECT_EQ(pair.socket.readData(data, context), SocketResult::Error);
    const Clock::time_point end = Clock::now();
    closer.join();
    EXPECT_LT(end - closing, std::chrono::milliseconds(200));
    EXPECT_GE(end, closing);
}

TEST(TcpSocketTest, closeOnAnotherThread_endsAWrite)
{
    RawPeerPair pair;
    const std::string data(50'000'000, 'x');
    Clock::time_point closing;
    std::thread closer([&] {
        // The write has begun when its header arrives.
        pair.peer.receiveText();
        closing = Clock::now();
        pair.socket.close();
    });
    EXPECT_EQ(pair.socket.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
    const Clock::time_point end = Clock::now();
    closer.join();
    EXPECT_LT(end - closing, std::chrono::milliseconds(200));
    EXPECT_GE(end, closing);
}

TEST(TcpSocketTest, beginClose_endsAReadOnAnotherThreadWithoutWaitingForIt)
{
    RawPeerPair pair;

    // The hook holds the transfer until beginClose has returned, which waits for no lock therefore.
    class WaitingContext : public ReadDataContext
    {
    public:
        explicit WaitingContext(TcpSocket& socket) : m_socket(socket) {}

        void onReceiveStart(const XmlString& /*header*/) const override
        {
            auto closing = std::async(std::launch::async, [this] { m_socket.beginClose(); });
            isFast = closing.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
        }

        mutable bool isFast = false;

    private:
        TcpSocket& m_socket;
    };

    const WaitingContext context(pair.socket);
    pair.peer.send(header(element("DataType", "2") + element("FileSize", "3") + element("Compressed", "0")));
    ReceivedData data;
    EXPECT_EQ(pair.socket.readData(data, context), SocketResult::Error);
    EXPECT_TRUE(context.isFast);
    EXPECT_FALSE(pair.socket.isOpen());
    pair.socket.close();
    EXPECT_EQ(pair.peer.receive(1), "");
}

TEST(TcpSocketTest, waitForMessage_ofASilentPeer_isFalseAfterTheTime)
{
    RawPeerPair pair;
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(pair.socket.waitForMessage(std::chrono::milliseconds(300)));
    EXPECT_GE(Tests::elapsedMs(start), 290);
    EXPECT_TRUE(pair.socket.isOpen());
}

TEST(TcpSocketTest, waitForMessage_returnsWithTheFirstByteAndTakesNone)
{
    RawPeerPair pair;
    const std::string message = header(element("DataType", "0"));
    pair.peer.send(message.substr(0, 1));
    const Clock::time_point start = Clock::now();
    EXPECT_TRUE(pair.socket.waitForMessage(std::chrono::seconds(20)));
    EXPECT_TRUE(pair.socket.waitForMessage(std::chrono::seconds(20)));
    EXPECT_LT(Tests::elapsedMs(start), 10'000);
    pair.peer.send(message.substr(1));
    XmlString text;
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Success);
    EXPECT_FALSE(pair.socket.waitForMessage(std::chrono::milliseconds(0)));
}

TEST(TcpSocketTest, waitForMessage_ofAPeerThatCloses_isFalseAtOnce)
{
    RawPeerPair pair;
    pair.peer.close();
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(pair.socket.waitForMessage(std::chrono::seconds(20)));
    EXPECT_FALSE(pair.socket.isOpen());
    EXPECT_FALSE(pair.socket.waitForMessage(std::chrono::seconds(20)));
    EXPECT_LT(Tests::elapsedMs(start), 10'000);
}

TEST(TcpSocketTest, isOpen_duringARead_doesNotWait)
{
    RawPeerPair pair;
    pair.peer.send(header(element("DataType", "2") + element("FileSize", "5") + element("Compressed", "0")));
    AnnouncingContext context;
    std::thread reader([&] {
        ReceivedData data;
        EXPECT_EQ(pair.socket.readData(data, context), SocketResult::Error);
    });
    context.waitForBody();
    const Clock::time_point start = Clock::now();
    EXPECT_TRUE(pair.socket.isOpen());
    EXPECT_LT(Tests::elapsedMs(start), 50);
    pair.peer.close();
    reader.join();
}

TEST(TcpSocketTest, isOpen_isFalseAlreadyWhileCloseWaits)
{
    // The hook stops the transfer, which holds the lock, until the hook has seen the closed socket.
    class Watching : public ReadDataContext
    {
    public:
        explicit Watching(TcpSocket& socket) : m_socket(socket) {}

        void onReceiveStart(const XmlString&) const override
        {
            closer = std::thread([this] { m_socket.close(); });
            const Clock::time_point start = Clock::now();
            while (m_socket.isOpen() && Tests::elapsedMs(start) < 5000)
                std::this_thread::yield();
            sawItClosed = !m_socket.isOpen();
        }

        mutable std::thread closer;
        mutable bool sawItClosed = false;

    private:
        TcpSocket& m_socket;
    };

    RawPeerPair pair;
    pair.peer.send(header(element("DataType", "2") + element("FileSize", "5") + element("Compressed", "0")) +
                   "12345");
    const Watching context(pair.socket);
    ReceivedData data;
    EXPECT_EQ(pair.socket.readData(data, context), SocketResult::Error);
    context.closer.join();
    EXPECT_TRUE(context.sawItClosed);
}

TEST(TcpSocketTest, headerLongerThanTheLimit_isAnError)
{
    RawPeerPair pair;
    const std::string text = header(element("DataType", "0"));
    pair.socket.setHeaderSizeLimit(text.size() - 1);
    pair.peer.send(text);
    XmlString received;
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Success);
    pair.socket.setHeaderSizeLimit(text.size() - 2);
    pair.peer.send(text);
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Error);
}

TEST(TcpSocketTest, headerWithoutEnd_isCutAtTheLimit)
{
    RawPeerPair pair;
    pair.socket.setHeaderSizeLimit(100'000);
    std::thread sender([&] { pair.peer.send(std::string(300'000, 'x')); });
    XmlString received;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Error);
    EXPECT_LT(Tests::elapsedMs(start), 900);
    sender.join();
}

TEST(TcpSocketTest, headerThatTrickles_isAnErrorWhenItsTimeIsOver)
{
    RawPeerPair pair;
    pair.socket.setHeaderTimeLimit(std::chrono::milliseconds(1500));
    std::atomic<bool> isOver = false;
    std::thread sender([&, began = Clock::now()] {
        while (!isOver && Tests::elapsedMs(began) < 5000 && pair.peer.send("x"))
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
    });
    XmlString received;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 1400);
    EXPECT_LT(Tests::elapsedMs(start), 2500);
    isOver = true;
    sender.join();
    EXPECT_TRUE(pair.socket.isOpen());
}

TEST(TcpSocketTest, limits_moveWithTheConnection)
{
    RawPeerPair pair;
    pair.socket.setHeaderSizeLimit(3);
    TcpSocket moved(std::move(pair.socket));
    pair.peer.send(header(element("DataType", "0")));
    XmlString received;
    EXPECT_EQ(moved.readString(received), SocketResult::Error);
}

// Bytes that were read ahead after one message belong to the next message, also after a move.
TEST(TcpSocketTest, move_keepsWhatHasArrived)
{
    RawPeerPair pair;
    const std::string text = header(element("DataType", "0") + element("a", "b"));
    pair.peer.send(text + text);
    XmlString received;
    ASSERT_EQ(pair.socket.readString(received), SocketResult::Success);
    TcpSocket moved(std::move(pair.socket));
    received = XmlString();
    ASSERT_EQ(moved.readString(received), SocketResult::Success);
    EXPECT_EQ(received.getChild(L"a"), String(L"b"));
}

TEST(TcpSocketTest, headerSizeLimit_mayBeTheLargestNumber)
{
    RawPeerPair pair;
    pair.socket.setHeaderSizeLimit(std::numeric_limits<std::size_t>::max());
    pair.peer.send(header(element("DataType", "0")));
    XmlString received;
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Success);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
