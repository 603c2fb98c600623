// SPDX-License-Identifier: MIT
// Tests how long connections wait for their peers.
#include "Connections.h"

#include "support/TemporaryFolder.h"

#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/socket.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::ConnectedPair;
using Tests::element;
using Tests::header;
using Tests::RawPeerPair;
using Tests::RawSocket;
using Tests::tree;

using Clock = std::chrono::steady_clock;

// Writes more than the system buffers for a peer that does not read.
void expectLimitedWriteToEnd(RawPeerPair& pair)
{
    const std::string data(50'000'000, 'x');
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(
        pair.socket.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData, 300),
        SocketResult::Timeout);
    EXPECT_GE(Tests::elapsedMs(start), 250);
    EXPECT_LT(Tests::elapsedMs(start), 800);
}

TEST(TimeoutTest, silentPeer_endsAReadAfterASecond)
{
    RawPeerPair pair;
    XmlString text;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 1500);
    EXPECT_TRUE(pair.socket.isOpen());
}

TEST(TimeoutTest, waitsOnTheMainThread_dispatchNoEvents)
{
    class Ticker : public wxTimer
    {
    public:
        void Notify() override { ++ticks; }

        int ticks = 0;
    };

    ConnectedPair pair;
    const std::unique_ptr<wxEventLoopBase> loop(wxAppConsole::GetInstance()->GetTraits()->CreateEventLoop());
    const wxEventLoopActivator active(loop.get());
    Ticker ticker;
    ticker.Start(10);
    XmlString text;
    EXPECT_EQ(pair.client.readString(text), SocketResult::Error);
    EXPECT_EQ(pair.server.readString(text), SocketResult::Error);
    EXPECT_FALSE(TcpListener(SocketAddress::localhost(0), 1).acceptConnection(true).isOpen());
    EXPECT_EQ(ticker.ticks, 0);
    const Clock::time_point start = Clock::now();
    while (ticker.ticks == 0 && Tests::elapsedMs(start) < 5000)
        loop->DispatchTimeout(100);
    EXPECT_GT(ticker.ticks, 0);
    // The event loop frees the sockets that were closed while it was active.
    Tests::freeDestroyedSockets();
}

TEST(TimeoutTest, silentPeer_doesNotDisturbTheNextMessage)
{
    RawPeerPair pair;
    XmlString text;
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Error);
    pair.peer.send(header(element("DataType", "0")));
    EXPECT_EQ(pair.socket.readString(text), SocketResult::Success);
}

TEST(TimeoutTest, silentAcceptedPeer_endsAReadAfterASecond)
{
    ConnectedPair pair;
    XmlString text;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.server.readString(text), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 1500);
}

TEST(TimeoutTest, peerThatTakesNothing_endsALimitedWrite)
{
    RawPeerPair pair;
    expectLimitedWriteToEnd(pair);
}

TEST(TimeoutTest, peerThatTakesNothing_endsTheWriteOfAHeader)
{
    RawPeerPair pair;
    const XmlString message = tree(L"a", String(std::wstring(20'000'000, L'x')));
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.writeString(message), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 3000);
}

TEST(TimeoutTest, peerThatTakesNothing_endsTheLimitedWriteOfAHeader)
{
    RawPeerPair pair;
    const XmlString message = tree(L"a", String(std::wstring(20'000'000, L'x')));
    EXPECT_EQ(pair.socket.writeString(message, 100), SocketResult::Timeout);
}

TEST(TimeoutTest, limitBelowASecond_isEnoughForAPeerThatReads)
{
    RawPeerPair pair;
    std::string received;
    std::thread reader([&] {
        pair.peer.receiveText();
        received = pair.peer.receive(3'000'000);
    });
    const std::string data(3'000'000, 'x');
    EXPECT_EQ(
        pair.socket.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData, 900),
        SocketResult::Success);
    reader.join();
    EXPECT_TRUE(received == data);
}

TEST(TimeoutTest, timeLimits_beyondAllMeasure_areTaken)
{
    RawPeerPair pair;
    for (const std::int64_t limit : {std::numeric_limits<std::int64_t>::max(),
                                     std::numeric_limits<std::int64_t>::min(), std::int64_t(0)})
        EXPECT_EQ(pair.socket.writeString({}, limit), SocketResult::Success) << limit;
    EXPECT_EQ(pair.socket.writeRawMemory(Tests::viewOf("x"), {}, DataCompression::None, DataType::RawData,
                                         std::numeric_limits<std::int64_t>::max()),
              SocketResult::Success);
}

// A write that sends 0 bytes is repeated until the limit, or for ever if there is no limit.
TEST(TimeoutTest, headerOfWhichNoByteIsTaken_isTriedAgain)
{
    RawPeerPair pair;
    // The data fills the buffers of both ends, which grow for a while, until not even a small header fits.
    const std::string data(50'000'000, 'x');
    ASSERT_EQ(
        pair.socket.writeRawMemory(Tests::viewOf(data), {}, DataCompression::None, DataType::RawData, 100),
        SocketResult::Timeout);
    for (int refusals = 0; refusals < 3;)
        refusals = pair.socket.writeString({}, 200) == SocketResult::Success ? 0 : refusals + 1;
    Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.writeString({}, 1500), SocketResult::Timeout);
    EXPECT_GE(Tests::elapsedMs(start), 1400);
    EXPECT_LT(Tests::elapsedMs(start), 2500);
    // The peer begins to read only after the second that a header gets.
    std::thread reader([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(1300));
        pair.peer.receiveAll();
    });
    start = Clock::now();
    EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
    EXPECT_GE(Tests::elapsedMs(start), 1200);
    pair.socket.close();
    reader.join();
}

TEST(TimeoutTest, timeLimit_beginsWhenTheSocketIsFree)
{
    // The hook holds the socket for longer than the time limit of the waiting write.
    class Holding : public ReadDataContext
    {
    public:
        explicit Holding(TcpSocket& socket) : m_socket(socket) {}

        void onReceiveStart(const XmlString&) const override
        {
            writer = std::thread([this] { result = m_socket.writeString({}, 50); });
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
        }

        mutable std::thread writer;
        mutable SocketResult result = SocketResult::Error;

    private:
        TcpSocket& m_socket;
    };

    RawPeerPair pair;
    pair.peer.send(header(element("DataType", "2") + element("FileSize", "1") + element("Compressed", "0")) +
                   "x");
    const Holding context(pair.socket);
    ReceivedData data;
    EXPECT_EQ(pair.socket.readData(data, context), SocketResult::Success);
    context.writer.join();
    EXPECT_EQ(context.result, SocketResult::Success);
}

TEST(TimeoutTest, urgentDataThatNobodyTakes_doesNotProlongALimitedWrite)
{
    RawPeerPair pair;
    ASSERT_TRUE(pair.peer.sendUrgent('!'));
    expectLimitedWriteToEnd(pair);
}

TEST(TimeoutTest, peerThatPausesForLessThanASecond_isServed)
{
    RawPeerPair pair;
    const std::string text = header(element("DataType", "0"));
    std::thread sender([&] {
        pair.peer.send(std::string_view(text).substr(0, text.size() - 3));
        for (std::size_t left = 3; left > 0; --left) {
            std::this_thread::sleep_for(std::chrono::milliseconds(900));
            pair.peer.send(std::string_view(text).substr(text.size() - left, 1));
        }
    });
    XmlString received;
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Success);
    EXPECT_GE(Tests::elapsedMs(start), 2500);
    sender.join();
}

TEST(TimeoutTest, timeouts_areThoseOfTheLastStep)
{
    class Visible : public TcpClient
    {
    public:
        using TcpClient::TcpClient;

        long timeout() const { return wxSocket()->GetTimeout(); }
    };

    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"f", "x");
    RawSocket listener = RawSocket::listening();
    Visible socket(SocketAddress::localhost(listener.port()), 10);
    RawSocket peer = listener.accept();
    const auto view = Tests::viewOf("x");
    EXPECT_EQ(socket.writeString({}), SocketResult::Success);
    EXPECT_EQ(socket.timeout(), 1);
    EXPECT_EQ(socket.writeFile(file, {}, DataCompression::None, DataType::File), SocketResult::Success);
    EXPECT_EQ(socket.timeout(), 120);
    EXPECT_EQ(socket.writeRawMemory(view, {}, DataCompression::None, DataType::RawData),
              SocketResult::Success);
    EXPECT_EQ(socket.timeout(), 3600);
    EXPECT_EQ(socket.writeRawMemory(view, {}, DataCompression::None, DataType::RawData, 7999),
              SocketResult::Success);
    EXPECT_EQ(socket.timeout(), 7);
    peer.send(header(element("DataType", "2") + element("FileSize", "1") + element("Compressed", "0")) + "x");
    ReceivedData data;
    EXPECT_EQ(socket.readData(data, ReadDataContext()), SocketResult::Success);
    EXPECT_EQ(socket.timeout(), 5);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
