// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/WxSocket.h"

#include "Connections.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "support/SystemLimits.h"

#include <wx/socket.h>

#include <gtest/gtest.h>

#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::bytes;
using Tests::RawSocket;

using Clock = std::chrono::steady_clock;

// A socket of wxWidgets and its raw peer.
struct ToolkitPair
{
    explicit ToolkitPair(wxSocketFlags flags = wxSOCKET_WAITALL | wxSOCKET_BLOCK)
        : client(new wxSocketClient(flags)), socket(client)
    {
        wxIPV4address address;
        address.Hostname("127.0.0.1");
        address.Service(listener.port());
        if (!client->Connect(address, true))
            ADD_FAILURE() << "not connected";
        peer = listener.accept();
    }

    RawSocket listener = RawSocket::listening();
    wxSocketClient* client;
    Detail::SocketOwner socket;
    RawSocket peer;
};

TEST(WxSocketTest, constructor_setsTheFlags)
{
    const ToolkitPair pair;
    const WxSocket socket(pair.client);
    EXPECT_EQ(pair.client->GetFlags(), wxSOCKET_WAITALL);
}

TEST(WxSocketTest, close_destroysTheSocketOnce)
{
    ToolkitPair pair;
    WxSocket socket(pair.socket.release());
    socket.close();
    socket.close();
    EXPECT_EQ(pair.peer.receive(1), "");
}

TEST(WxSocketTest, writeString_ofNothing_sendsASingleZero)
{
    ToolkitPair pair;
    EXPECT_EQ(WxSocket::writeString(pair.client, String(), 1), SocketResult::Success);
    pair.socket.reset();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("\0"));
}

TEST(WxSocketTest, writeString_sendsUtf8AndAZero)
{
    ToolkitPair pair;
    EXPECT_EQ(WxSocket::writeString(pair.client, L"a\x00e9\x4e2d", 1), SocketResult::Success);
    pair.socket.reset();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("a\xC3\xA9\xE4\xB8\xAD\0"));
}

TEST(WxSocketTest, readString_readsToTheZeroAndNotBeyond)
{
    for (const wxSocketFlags flags :
         {wxSOCKET_WAITALL | wxSOCKET_BLOCK, wxSOCKET_WAITALL | 0, wxSOCKET_BLOCK | 0, wxSOCKET_NONE | 0}) {
        ToolkitPair pair(flags);
        pair.peer.send(bytes("abc\0d\xC3\xA9\0rest"));
        String text;
        EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Success);
        EXPECT_EQ(text, L"abc");
        EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Success);
        EXPECT_EQ(text, L"d\x00e9");
        EXPECT_EQ(pair.client->GetFlags(), flags);
        std::string rest(4, '\0');
        pair.client->Read(rest.data(), 4);
        EXPECT_EQ(rest, "rest");
    }
}

TEST(WxSocketTest, readString_ofNothing_isEmpty)
{
    ToolkitPair pair;
    pair.peer.send(bytes("\0"));
    String text = L"old";
    EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Success);
    EXPECT_TRUE(text.isEmpty());
}

TEST(WxSocketTest, readString_ofALongText_givesAll)
{
    ToolkitPair pair;
    std::thread sender([&] {
        pair.peer.send(std::string(300'000, 'x'));
        pair.peer.send(bytes("\0y\0"));
    });
    String text;
    EXPECT_EQ(WxSocket::readString(pair.client, text, 5), SocketResult::Success);
    EXPECT_EQ(text.length(), 300'000u);
    EXPECT_EQ(WxSocket::readString(pair.client, text, 5), SocketResult::Success);
    EXPECT_EQ(text, L"y");
    sender.join();
}

TEST(WxSocketTest, readString_withoutAZero_leavesTheTextAlone)
{
    ToolkitPair pair;
    pair.peer.send("abc");
    pair.peer.close();
    String text = L"old";
    EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Error);
    EXPECT_EQ(text, L"old");
    EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Error);
    EXPECT_EQ(WxSocket::writeString(pair.client, text, 1), SocketResult::Error);
}

TEST(WxSocketTest, readString_fromASilentPeer_endsWithTheTime)
{
    for (const wxSocketFlags flags : {wxSOCKET_WAITALL | wxSOCKET_BLOCK, wxSOCKET_WAITALL | 0}) {
        ToolkitPair pair(flags);
        String text;
        const Clock::time_point start = Clock::now();
        EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Error);
        EXPECT_GE(Tests::elapsedMs(start), 900);
        EXPECT_LT(Tests::elapsedMs(start), 1500);
        EXPECT_EQ(pair.client->GetTimeout(), 1);
    }
}

TEST(WxSocketTest, writeString_toAPeerThatTakesNothing_endsWithTheTime)
{
    ToolkitPair pair;
    // More than the systems' buffers hold.
    const String text{std::wstring(12'000'000, L'x')};
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(WxSocket::writeString(pair.client, text, 1), SocketResult::Error);
    EXPECT_GE(Tests::elapsedMs(start), 900);
    EXPECT_LT(Tests::elapsedMs(start), 4000);
}

TEST(WxSocketTest, unconnectedSocket_isAnError)
{
    const Detail::SocketOwner socket(new wxSocketClient(wxSOCKET_BLOCK));
    String text;
    EXPECT_EQ(WxSocket::readString(socket.get(), text, 1), SocketResult::Error);
    EXPECT_EQ(WxSocket::writeString(socket.get(), text, 1), SocketResult::Error);
}

TEST(WxSocketTest, readString_ofAZeroThatWasPutBack_endsThere)
{
    ToolkitPair pair;
    pair.peer.send("x");
    pair.client->WaitForRead(1);
    pair.client->Unread("abc", 4);
    String text;
    EXPECT_EQ(WxSocket::readString(pair.client, text, 1), SocketResult::Success);
    EXPECT_EQ(text, L"abc");
    char next = 0;
    pair.client->Read(&next, 1);
    EXPECT_EQ(next, 'x');
}

TEST(WxSocketTest, strings_forWhichThereIsNoMemory_areErrors)
{
    if (!Tests::ScarceMemory().isEffective())
        GTEST_SKIP() << "Memory cannot be limited here.";
    ToolkitPair pair;
    const String longText(std::wstring(60'000'000, L'x'));
    const std::string longBytes(60'000'000, 'x');
    String text = L"old";
    SocketResult written = SocketResult::Success;
    SocketResult read = SocketResult::Success;
    std::thread sender([&] { pair.peer.send(longBytes); });
    {
        const Tests::ScarceMemory scarce;
        EXPECT_NO_THROW(written = WxSocket::writeString(pair.client, longText, 1));
        EXPECT_NO_THROW(read = WxSocket::readString(pair.client, text, 1));
    }
    pair.socket.reset();
    sender.join();
    EXPECT_EQ(written, SocketResult::Error);
    EXPECT_EQ(read, SocketResult::Error);
    EXPECT_EQ(text, L"old");
}

} // namespace
} // namespace Nolvex::Wx::Legacy
