// SPDX-License-Identifier: MIT
// Tests how connections survive signals and limits of the system.
#include "HostilePeerFixture.h"

#include "support/SystemLimits.h"

#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

using Clock = std::chrono::steady_clock;

using SystemHazardsTest = HostilePeerFixture;

TEST_F(SystemHazardsTest, signals_areNoReasonToGiveUp)
{
    Tests::whileInterrupted([&] {
        for (int i = 0; i < 5; ++i) {
            RawSocket listener = RawSocket::listening();
            TcpClient client(SocketAddress::localhost(listener.port()), 10);
            ASSERT_TRUE(client.isOpen());
            // The peer runs on a thread that gets no signals.
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

TEST_F(SystemHazardsTest, signals_doNotProlongTheTimeout)
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

TEST_F(SystemHazardsTest, descriptorsBeyondTheToolkitsReach_areRefused)
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

TEST_F(SystemHazardsTest, sockets_areNotInheritedByChildren)
{
    const std::size_t before = Tests::inheritableSockets();
    const Tests::ConnectedPair pair;
    const UdpSocket datagrams(SocketAddress::anyAddress(0));
    EXPECT_EQ(Tests::inheritableSockets(), before);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
