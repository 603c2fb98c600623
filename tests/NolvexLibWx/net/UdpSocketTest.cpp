// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/UdpSocket.h"

#include "Connections.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <type_traits>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::bytes;
using Tests::RawSocket;
using Tests::tree;
using Tests::viewOf;

using Buffer = std::array<std::byte, 512>;

// Returns a port that no program uses at the moment.
unsigned short freePort()
{
    return RawSocket::datagram().port();
}

// Two sockets, each bound to a port of its own.
struct UdpPair
{
    unsigned short firstPort = freePort();
    UdpSocket first{SocketAddress(L"127.0.0.1", firstPort)};
    unsigned short secondPort = freePort();
    UdpSocket second{SocketAddress(L"127.0.0.1", secondPort)};
};

// Over the loopback address datagrams arrive at once or almost at once.
SocketResult readSoon(UdpSocket& socket, Buffer& buffer, SocketAddress& sender, std::uint64_t& received)
{
    const auto start = std::chrono::steady_clock::now();
    SocketResult result = socket.readByteData(buffer, sender, received);
    while (result == SocketResult::Error && Tests::elapsedMs(start) < 2000)
        result = socket.readByteData(buffer, sender, received);
    return result;
}

SocketResult readXmlSoon(UdpSocket& socket, XmlString& out)
{
    SocketAddress sender;
    const auto start = std::chrono::steady_clock::now();
    SocketResult result = socket.readXmlString(out, sender);
    while (result == SocketResult::Error && Tests::elapsedMs(start) < 2000)
        result = socket.readXmlString(out, sender);
    return result;
}

std::string textOf(const Buffer& buffer, std::uint64_t size)
{
    return {reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(size)};
}

// Returns a message whose text has this many bytes.
XmlString messageOfSize(std::size_t size)
{
    const std::size_t frame = tree(L"a", String()).toUtf8().size();
    return tree(L"a", String(std::wstring(size - frame, L'x')));
}

static_assert(!std::is_copy_constructible_v<UdpSocket> && !std::is_move_constructible_v<UdpSocket>);

TEST(UdpSocketTest, datagram_arrivesWithItsSender)
{
    UdpPair pair;
    ASSERT_EQ(pair.first.writeByteData(viewOf("abc"), SocketAddress(L"127.0.0.1", pair.secondPort)),
              SocketResult::Success);
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 99;
    ASSERT_EQ(readSoon(pair.second, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "abc");
    EXPECT_EQ(sender.toString(), L"127.0.0.1");
    EXPECT_EQ(sender.getPort(), pair.firstPort);
}

TEST(UdpSocketTest, write_withoutTarget_goesToTheConstructorsAddress)
{
    RawSocket peer = RawSocket::datagram();
    const UdpSocket socket(SocketAddress(L"127.0.0.1", peer.port()), UdpSocket::ConstructFlag::NoBind);
    ASSERT_TRUE(socket.isOpen());
    EXPECT_EQ(socket.writeByteData(viewOf("abc")), SocketResult::Success);
    EXPECT_EQ(peer.receiveDatagram(), "abc");
    EXPECT_EQ(socket.writeXmlString(tree(L"a", L"b")), SocketResult::Success);
    EXPECT_EQ(peer.receiveDatagram(), bytes("<root><a>b</a></root>\0"));
}

TEST(UdpSocketTest, write_afterReceiving_doesNotGoToTheSender)
{
    UdpPair pair;
    RawSocket stranger = RawSocket::datagram();
    RawSocket target = RawSocket::datagram();
    stranger.sendTo(pair.firstPort, "hello");
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(pair.first.writeByteData(viewOf("secret"), SocketAddress()), SocketResult::Error);
    EXPECT_EQ(pair.first.writeByteData(viewOf("x"), SocketAddress(L"127.0.0.1", target.port())),
              SocketResult::Success);
    EXPECT_EQ(target.receiveDatagram(), "x");
    EXPECT_EQ(pair.first.writeByteData(viewOf("answer"), sender), SocketResult::Success);
    EXPECT_EQ(stranger.receiveDatagram(), "answer");
}

TEST(UdpSocketTest, read_withNothingWaiting_isAnErrorAtOnce)
{
    UdpPair pair;
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 99;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(pair.first.readByteData(buffer, sender, received), SocketResult::Error);
    EXPECT_EQ(received, 0u);
    EXPECT_LT(Tests::elapsedMs(start), 50);
}

TEST(UdpSocketTest, read_intoABufferOfAnotherSize_readsNothing)
{
    UdpPair pair;
    ASSERT_EQ(pair.first.writeByteData(viewOf("abc"), SocketAddress(L"127.0.0.1", pair.secondPort)),
              SocketResult::Success);
    std::array<std::byte, 513> longer;
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 99;
    const auto start = std::chrono::steady_clock::now();
    while (Tests::elapsedMs(start) < 100) {
        EXPECT_EQ(pair.second.readByteData(ArrayView<std::byte>(longer), sender, received),
                  SocketResult::Error);
        EXPECT_EQ(pair.second.readByteData(ArrayView<std::byte>(longer).first(511), sender, received),
                  SocketResult::Error);
    }
    EXPECT_EQ(readSoon(pair.second, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(received, 3u);
}

TEST(UdpSocketTest, write_ofMoreThan512Bytes_isAnError)
{
    UdpPair pair;
    const std::string data(513, 'x');
    const SocketAddress target(L"127.0.0.1", pair.secondPort);
    EXPECT_EQ(pair.first.writeByteData(viewOf(data), target), SocketResult::Error);
    EXPECT_EQ(pair.first.writeByteData(viewOf(data).first(512), target), SocketResult::Success);
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(pair.second, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(received, 512u);
}

TEST(UdpSocketTest, write_ofNothing_sendsAnEmptyDatagram)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    const SocketAddress target(L"127.0.0.1", peer.port());
    EXPECT_EQ(pair.first.writeByteData({}, target), SocketResult::Success);
    EXPECT_EQ(pair.first.writeByteData(viewOf("abc"), target), SocketResult::Success);
    EXPECT_EQ(peer.receiveDatagram(), "");
    EXPECT_EQ(peer.receiveDatagram(), "abc");
}

TEST(UdpSocketTest, emptyDatagram_isTakenAsAnErrorAndDoesNotClose)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    const SocketAddress old(L"10.0.0.1", 7);
    SocketAddress sender = old;
    std::uint64_t received = 99;
    Buffer buffer;
    peer.sendTo(pair.firstPort, "first");
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    sender = old;
    peer.sendTo(pair.firstPort, "");
    EXPECT_EQ(pair.first.readByteData(buffer, sender, received), SocketResult::Error);
    EXPECT_EQ(received, 0u);
    EXPECT_TRUE(sender == old);
    EXPECT_TRUE(pair.first.isOpen());
    peer.sendTo(pair.firstPort, "abc");
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "abc");
}

TEST(UdpSocketTest, addressWithoutAHost_isNeverSentTo)
{
    const unsigned short port = freePort();
    UdpSocket here(SocketAddress::anyAddress(port));
    const UdpSocket sender(SocketAddress::anyAddress(0), UdpSocket::ConstructFlag::Broadcast);
    for (const wchar_t* host : {L"", L" ", L"no such host", L"a..b", L"0.0.0.0"}) {
        EXPECT_EQ(sender.writeByteData(viewOf("x"), SocketAddress(host, port)), SocketResult::Error) << host;
        EXPECT_EQ(sender.writeXmlString({}, SocketAddress(host, port)), SocketResult::Error) << host;
    }
    EXPECT_EQ(sender.writeByteData(viewOf("x"), SocketAddress::anyAddress(port)), SocketResult::Error);
    EXPECT_EQ(here.writeByteData(viewOf("x")), SocketResult::Error);
    // The loopback address keeps the order, so that no datagram came before this one.
    ASSERT_EQ(sender.writeByteData(viewOf("last"), SocketAddress::localhost(port)), SocketResult::Success);
    Buffer buffer;
    SocketAddress from;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(here, buffer, from, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "last");
}

TEST(UdpSocketTest, writeToAPortThatNobodyHas_doesNotDisturbReceiving)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    ASSERT_EQ(pair.first.writeByteData(viewOf("lost"), SocketAddress(L"127.0.0.1", freePort())),
              SocketResult::Success);
    peer.sendTo(pair.firstPort, "abc");
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "abc");
}

TEST(UdpSocketTest, xmlString_arrives)
{
    UdpPair pair;
    const XmlString message = tree(L"a", L"\x00e9\x4e2d");
    ASSERT_EQ(pair.first.writeXmlString(message, SocketAddress(L"127.0.0.1", pair.secondPort)),
              SocketResult::Success);
    XmlString received;
    SocketAddress sender;
    const auto start = std::chrono::steady_clock::now();
    SocketResult result = SocketResult::Error;
    while (result == SocketResult::Error && Tests::elapsedMs(start) < 2000)
        result = pair.second.readXmlString(received, sender);
    EXPECT_EQ(result, SocketResult::Success);
    EXPECT_TRUE(received == message);
    EXPECT_EQ(sender.getPort(), pair.firstPort);
}

TEST(UdpSocketTest, xmlString_of511Bytes_isTheLongest)
{
    UdpPair pair;
    const SocketAddress target(L"127.0.0.1", pair.secondPort);
    EXPECT_EQ(pair.first.writeXmlString(messageOfSize(512), target), SocketResult::Error);
    ASSERT_EQ(pair.first.writeXmlString(messageOfSize(511), target), SocketResult::Success);
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(pair.second, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(received, 512u);
    EXPECT_EQ(textOf(buffer, received), messageOfSize(511).toUtf8() + std::string(1, '\0'));
}

TEST(UdpSocketTest, readXmlString_of512BytesWithoutZero_takesTheFirst511)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    const std::string text = messageOfSize(511).toUtf8();
    peer.sendTo(pair.firstPort, text + "?");
    XmlString received;
    ASSERT_EQ(readXmlSoon(pair.first, received), SocketResult::Success);
    EXPECT_TRUE(received == messageOfSize(511));
}

TEST(UdpSocketTest, readXmlString_endsAtTheFirstZero)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    peer.sendTo(pair.firstPort, bytes("<root><a>b</a></root>\0rubbish"));
    XmlString received;
    ASSERT_EQ(readXmlSoon(pair.first, received), SocketResult::Success);
    EXPECT_TRUE(received == tree(L"a", L"b"));
    peer.sendTo(pair.firstPort, "<root><a>c</a></root>");
    ASSERT_EQ(readXmlSoon(pair.first, received), SocketResult::Success);
    EXPECT_TRUE(received == tree(L"a", L"c"));
}

TEST(UdpSocketTest, readXmlString_ofWhatIsNoTree_succeedsAndIsEmpty)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    peer.sendTo(pair.firstPort, "no tree");
    peer.sendTo(pair.firstPort, "<root><a>b</a></root>");
    XmlString received = tree(L"old", L"one");
    ASSERT_EQ(readXmlSoon(pair.first, received), SocketResult::Success);
    EXPECT_TRUE(received == XmlString());
    ASSERT_EQ(readXmlSoon(pair.first, received), SocketResult::Success);
    EXPECT_TRUE(received == tree(L"a", L"b"));
}

TEST(UdpSocketTest, getLocalAddress_isTheConstructors)
{
    const UdpSocket socket(SocketAddress::anyAddress(0));
    EXPECT_TRUE(socket.isOpen());
    EXPECT_EQ(socket.getLocalAddress().toString(), L"0.0.0.0");
    EXPECT_EQ(socket.getLocalAddress().getPort(), 0);
}

TEST(UdpSocketTest, constructor_onAPortThatIsTaken_isNotOpen)
{
    const RawSocket other = RawSocket::datagram();
    UdpSocket socket(SocketAddress(L"127.0.0.1", other.port()));
    EXPECT_FALSE(socket.isOpen());
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 99;
    EXPECT_EQ(socket.readByteData(buffer, sender, received), SocketResult::Error);
    EXPECT_EQ(socket.writeXmlString({}), SocketResult::Error);
}

TEST(UdpSocketTest, constructor_withNoBind_doesNotTakeThePort)
{
    const RawSocket other = RawSocket::datagram();
    const UdpSocket socket(SocketAddress(L"127.0.0.1", other.port()), UdpSocket::ConstructFlag::NoBind);
    EXPECT_TRUE(socket.isOpen());
}

TEST(UdpSocketTest, close_isFinalAndMayBeRepeated)
{
    UdpPair pair;
    pair.first.close();
    pair.first.close();
    EXPECT_FALSE(pair.first.isOpen());
    XmlString text;
    SocketAddress sender;
    EXPECT_EQ(pair.first.readXmlString(text, sender), SocketResult::Error);
    EXPECT_EQ(pair.first.writeByteData(viewOf("x")), SocketResult::Error);
    EXPECT_EQ(pair.first.writeXmlString(text), SocketResult::Error);
    EXPECT_TRUE(UdpSocket(SocketAddress(L"127.0.0.1", pair.firstPort)).isOpen());
}

TEST(UdpSocketTest, broadcast_withoutTheFlag_isAnError)
{
    const UdpSocket socket(SocketAddress::anyAddress(0));
    EXPECT_EQ(socket.writeByteData(viewOf("x"), SocketAddress::broadcast(freePort())), SocketResult::Error);
}

TEST(UdpSocketTest, broadcast_withTheFlag_reachesThisComputerToo)
{
    UdpSocket receiver(SocketAddress::anyAddress(freePort()));
    const UdpSocket sender(SocketAddress::anyAddress(0), UdpSocket::ConstructFlag::Broadcast);
    const SocketAddress target = SocketAddress::broadcast(receiver.getLocalAddress().getPort());
    if (!RawSocket::canBroadcast())
        GTEST_SKIP() << "This computer is not connected to any network.";
    ASSERT_EQ(sender.writeByteData(viewOf("abc"), target), SocketResult::Success);
    Buffer buffer;
    SocketAddress from;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(receiver, buffer, from, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "abc");
}

TEST(UdpSocketTest, constructFlags_areASet)
{
    const Flags<UdpSocket::ConstructFlag> both = {UdpSocket::ConstructFlag::Broadcast,
                                                  UdpSocket::ConstructFlag::NoBind};
    EXPECT_EQ(both.bits(), 3u);
    EXPECT_TRUE(UdpSocket(SocketAddress::anyAddress(0), both).isOpen());
}

TEST(UdpSocketTest, threads_mayShareASocket)
{
    UdpPair pair;
    const SocketAddress target(L"127.0.0.1", pair.secondPort);
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads) {
        thread = std::thread([&] {
            for (int i = 0; i < 500; ++i) {
                XmlString text;
                SocketAddress sender;
                EXPECT_EQ(pair.first.writeXmlString(tree(L"a", L"b"), target), SocketResult::Success);
                const SocketResult result = pair.second.readXmlString(text, sender);
                EXPECT_TRUE(text == (result == SocketResult::Success ? tree(L"a", L"b") : XmlString()));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(pair.first.isOpen());
}

TEST(UdpSocketTest, datagram_ofMoreThan512Bytes_isCut)
{
    UdpPair pair;
    RawSocket peer = RawSocket::datagram();
    const std::string text = std::string(512, 'x') + std::string(1, 'y');
    peer.sendTo(pair.firstPort, text);
    peer.sendTo(pair.firstPort, std::string(20'000, 'z'));
    peer.sendTo(pair.firstPort, "abc");
    Buffer buffer;
    SocketAddress sender;
    std::uint64_t received = 0;
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), std::string(512, 'x'));
    EXPECT_EQ(sender.getPort(), peer.port());
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), std::string(512, 'z'));
    ASSERT_EQ(readSoon(pair.first, buffer, sender, received), SocketResult::Success);
    EXPECT_EQ(textOf(buffer, received), "abc");
}

} // namespace
} // namespace Nolvex::Wx::Legacy
