// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketInputStream.h"

#include "StreamPair.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

namespace Nolvex::Wx {
namespace {

using Tests::StreamPair;

// Makes the protected functions of the stream public.
class OpenInputStream : public SocketInputStream
{
public:
    using SocketInputStream::eofImpl;
    using SocketInputStream::readImpl;
    using SocketInputStream::SocketInputStream;
};

TEST(SocketInputStreamTest, read_countsWhatCame)
{
    StreamPair pair;
    SocketInputStream stream(pair.client);
    pair.peer.send("abcde");
    std::string buffer(5, '\0');
    EXPECT_EQ(stream.read(buffer.data(), 3), 3);
    EXPECT_EQ(buffer.substr(0, 3), "abc");
    EXPECT_EQ(stream.read(buffer.data(), 5), 2);
    EXPECT_EQ(buffer.substr(0, 2), "de");
}

TEST(SocketInputStreamTest, read_countsWhatWasPutBack)
{
    StreamPair pair;
    SocketInputStream stream(pair.client);
    pair.peer.send("ab");
    stream.putBack(std::byte('x'));
    stream.putBack(std::byte('y'));
    std::string buffer(4, '\0');
    EXPECT_EQ(stream.read(buffer.data(), 1), 1);
    EXPECT_EQ(buffer[0], 'y');
    EXPECT_EQ(stream.read(buffer.data(), 3), 3);
    EXPECT_EQ(buffer.substr(0, 3), "xab");
}

TEST(SocketInputStreamTest, readImpl_reportsTheLastWrite)
{
    StreamPair pair;
    OpenInputStream stream(pair.client);
    pair.client->Write("1234567", 7);
    pair.peer.send("abc");
    std::string buffer(3, '\0');
    EXPECT_EQ(stream.readImpl(buffer.data(), 3), 7);
    EXPECT_EQ(buffer, "abc");
}

TEST(SocketInputStreamTest, eof_tellsWhetherTheLastReadWasComplete)
{
    StreamPair pair;
    OpenInputStream stream(pair.client);
    EXPECT_FALSE(stream.eofImpl());
    pair.peer.send("abc");
    std::string buffer(3, '\0');
    stream.read(buffer.data(), 2);
    EXPECT_TRUE(stream.eofImpl());
    stream.read(buffer.data(), 2);
    EXPECT_FALSE(stream.eofImpl());
}

TEST(SocketInputStreamTest, read_fromAPeerThatHasGone_isShort)
{
    StreamPair pair;
    SocketInputStream stream(pair.client);
    pair.peer.send("a");
    pair.peer.close();
    std::string buffer(3, '\0');
    EXPECT_EQ(stream.read(buffer.data(), 3), 1);
    EXPECT_EQ(stream.read(buffer.data(), 3), 0);
}

TEST(SocketInputStreamTest, lastReadCount_isWhatTheSocketGave)
{
    StreamPair pair;
    SocketInputStream stream(pair.client);
    EXPECT_EQ(stream.lastReadCount(), 0);
    pair.peer.send("abc");
    stream.putBack(std::byte('x'));
    std::string buffer(5'000'000, '\0');
    stream.read(buffer.data(), 3);
    EXPECT_EQ(stream.lastReadCount(), 2);
    // A single call of wxWidgets does not return as many bytes.
    std::thread sender([&] { pair.peer.send(std::string(3'999'999, 'x')); });
    stream.read(buffer.data(), 4'000'000);
    sender.join();
    EXPECT_EQ(stream.lastReadCount(), 4'000'000);
    stream.read(buffer.data(), 1);
    EXPECT_EQ(stream.lastReadCount(), 0);
}

TEST(SocketInputStreamTest, readOfNoBytes_takesNothingAndIsComplete)
{
    StreamPair pair;
    OpenInputStream stream(pair.client);
    pair.peer.send("ab");
    char byte = 0;
    EXPECT_EQ(stream.read(&byte, 0), 0);
    EXPECT_EQ(stream.lastReadCount(), 0);
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_EQ(byte, 'a');
}

TEST(SocketInputStreamTest, read_waitsForTheRest)
{
    StreamPair pair;
    SocketInputStream stream(pair.client);
    std::string buffer(4, '\0');
    std::thread sender([&pair] {
        for (const char* const part : {"ab", "c", "d"}) {
            pair.peer.send(part);
            std::this_thread::sleep_for(std::chrono::milliseconds(30)); // a slow peer
        }
    });
    EXPECT_EQ(stream.read(buffer.data(), 4), 4);
    sender.join();
    EXPECT_EQ(buffer, "abcd");
}

TEST(SocketInputStreamTest, read_fromASilentPeer_endsWithTheTimeOut)
{
    StreamPair pair;
    OpenInputStream stream(pair.client);
    pair.peer.send("a");
    std::string buffer(2, '\0');
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(stream.read(buffer.data(), 2), 1);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_GE(elapsed, std::chrono::milliseconds(900)) << "the time-out of the pair is a second";
    EXPECT_LT(elapsed, std::chrono::seconds(8));
    EXPECT_FALSE(stream.eofImpl());
}

TEST(SocketInputStreamTest, read_ofASocketThatIsNotConnected_givesOnlyWhatWasPutBack)
{
    const Legacy::Detail::SocketOwner socket(new wxSocketClient(wxSOCKET_BLOCK));
    OpenInputStream stream(socket.get());
    std::string buffer(3, '\0');
    EXPECT_EQ(stream.read(buffer.data(), 3), 0);
    EXPECT_FALSE(stream.eofImpl());
    stream.putBack(std::byte('x'));
    EXPECT_EQ(stream.read(buffer.data(), 3), 1);
    EXPECT_EQ(buffer[0], 'x');
}

} // namespace
} // namespace Nolvex::Wx
