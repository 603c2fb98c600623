// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketOutputStream.h"

#include "StreamPair.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace Nolvex::Wx {
namespace {

using Tests::StreamPair;

TEST(SocketOutputStreamTest, write_sendsAll)
{
    StreamPair pair;
    SocketOutputStream stream(pair.client);
    stream.write("abc", 3);
    stream.flush();
    EXPECT_EQ(stream.lastWriteCount(), 3);
    EXPECT_EQ(pair.peer.receive(3), "abc");
}

TEST(SocketOutputStreamTest, write_toAPeerThatTakesNothing_leavesBytesOut)
{
    StreamPair pair;
    SocketOutputStream stream(pair.client);
    const std::string data(50'000'000, 'x');
    EXPECT_NO_THROW(stream.write(data.data(), 50'000'000));
    EXPECT_LT(stream.lastWriteCount(), 50'000'000);
    EXPECT_GT(stream.lastWriteCount(), 0);
}

TEST(SocketOutputStreamTest, lastWriteCount_isThatOfTheLastWrite)
{
    StreamPair pair;
    SocketOutputStream stream(pair.client);
    EXPECT_EQ(stream.lastWriteCount(), 0);
    stream.write("abc", 3);
    stream.write("d", 1);
    EXPECT_EQ(stream.lastWriteCount(), 1);
    stream.write("", 0);
    EXPECT_EQ(stream.lastWriteCount(), 1) << "writing nothing is no write";
    EXPECT_EQ(pair.peer.receive(4), "abcd");
}

// A single call of wxWidgets does not send as many bytes.
TEST(SocketOutputStreamTest, write_ofManyBytes_sendsAllInTheirOrder)
{
    StreamPair pair;
    SocketOutputStream stream(pair.client);
    std::string data(4'000'000, '\0');
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<char>(i * 7 % 251);
    std::string received;
    std::thread receiver([&] { received = pair.peer.receive(data.size()); });
    stream.write(data.data(), static_cast<std::int64_t>(data.size()));
    receiver.join();
    EXPECT_EQ(stream.lastWriteCount(), static_cast<std::int64_t>(data.size()));
    EXPECT_TRUE(received == data);
}

TEST(SocketOutputStreamTest, write_toASocketThatIsNotConnected_sendsNothing)
{
    const Legacy::Detail::SocketOwner socket(new wxSocketClient(wxSOCKET_BLOCK));
    SocketOutputStream stream(socket.get());
    EXPECT_NO_THROW(stream.write("a", 1));
    EXPECT_EQ(stream.lastWriteCount(), 0);
}

} // namespace
} // namespace Nolvex::Wx
