// SPDX-License-Identifier: MIT
#include "Connections.h"
#include "NolvexLibWx/net/SocketOwner.h"

#include <wx/socket.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace Nolvex::Wx {
namespace {

using Tests::RawSocket;

struct StreamPair
{
    StreamPair()
    {
        wxIPV4address address;
        address.Hostname("127.0.0.1");
        address.Service(listener.port());
        client->SetTimeout(1);
        client->Connect(address, true);
        peer = listener.accept();
    }

    RawSocket listener = RawSocket::listening();
    wxSocketClient* client = new wxSocketClient(wxSOCKET_WAITALL | wxSOCKET_BLOCK);
    Legacy::Detail::SocketOwner owner{client};
    RawSocket peer;
};

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

TEST(SocketOutputStreamTest, streamsOfSocketsThatAreNotConnected_moveNothing)
{
    const Legacy::Detail::SocketOwner socket(new wxSocketClient(wxSOCKET_BLOCK));
    SocketInputStream input(socket.get());
    SocketOutputStream output(socket.get());
    char byte = 0;
    EXPECT_EQ(input.read(&byte, 1), 0);
    output.write(&byte, 1);
    EXPECT_EQ(output.lastWriteCount(), 0);
}

} // namespace
} // namespace Nolvex::Wx
