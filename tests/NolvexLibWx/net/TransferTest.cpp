// SPDX-License-Identifier: MIT
// Tests texts and raw data between two sockets of the library.
#include "MessageSamples.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::byteArrayOf;
using Tests::ConnectedPair;
using Tests::RawPeerPair;
using Tests::tree;

TEST(TransferTest, text_arrivesWithItsType)
{
    ConnectedPair pair;
    ASSERT_EQ(pair.client.writeString({}), SocketResult::Success);
    XmlString received;
    ASSERT_EQ(pair.server.readString(received), SocketResult::Success);
    EXPECT_TRUE(received == tree(L"DataType", L"0"));
    ASSERT_EQ(pair.server.writeString(tree(L"\x0061", L"\x4e2d\x6587")), SocketResult::Success);
    ASSERT_EQ(pair.client.readString(received), SocketResult::Success);
    EXPECT_EQ(received.getChild(L"a"), String(L"\x4e2d\x6587"));
}

TEST(TransferTest, text_thatIsPassedOn_arrives)
{
    ConnectedPair pair;
    ASSERT_EQ(pair.client.writeString(tree(L"a", L"b")), SocketResult::Success);
    XmlString received;
    ASSERT_EQ(pair.server.readString(received), SocketResult::Success);
    ASSERT_EQ(pair.server.writeString(received), SocketResult::Success);
    ASSERT_EQ(pair.client.readString(received), SocketResult::Success);
    EXPECT_EQ(received.getChild(L"a"), String(L"b"));
}

class RawDataTest : public testing::TestWithParam<std::size_t>
{};

TEST_P(RawDataTest, rawData_arrivesBothWays)
{
    ConnectedPair pair;
    const std::string text = Tests::incompressibleText(GetParam());
    const ReceivedRawData data{tree(L"k", L"v"), byteArrayOf(text)};
    for (const bool isAnswer : {false, true}) {
        TcpSocket& sender = isAnswer ? pair.server : static_cast<TcpSocket&>(pair.client);
        TcpSocket& receiver = isAnswer ? static_cast<TcpSocket&>(pair.client) : pair.server;
        std::thread sending([&] {
            EXPECT_EQ(sender.writeData(data, DataCompression::None, DataType::RawData),
                      SocketResult::Success);
        });
        ReceivedData received;
        EXPECT_EQ(receiver.readData(received, ReadDataContext()), SocketResult::Success);
        sending.join();
        ASSERT_EQ(received.index(), 2u);
        EXPECT_TRUE(received.get<ReceivedRawData>().data == data.data);
        EXPECT_EQ(received.get<ReceivedRawData>().header.getChild(L"k"), String(L"v"));
        EXPECT_EQ(received.get<ReceivedRawData>().header.getChild(L"FileSize"),
                  String(std::to_wstring(GetParam())));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, RawDataTest,
                         testing::Values(1, 65535, 65536, 65537, 4 << 20, (4 << 20) + 1, 20'000'000));

TEST(TransferTest, rawData_thatIsPassedOn_arrives)
{
    ConnectedPair pair;
    ASSERT_EQ(pair.client.writeRawMemory(viewOf("abc"), {}, DataCompression::None, DataType::RawData),
              SocketResult::Success);
    ReceivedData received;
    ASSERT_EQ(pair.server.readData(received, ReadDataContext()), SocketResult::Success);
    ASSERT_EQ(pair.server.writeData(received, DataCompression::None, DataType::RawData),
              SocketResult::Success);
    received.reset();
    ASSERT_EQ(pair.client.readData(received, ReadDataContext()), SocketResult::Success);
    EXPECT_EQ(Tests::textOf(received.get<ReceivedRawData>().data), "abc");
}

TEST(TransferTest, rawData_withCompressionInItsHeader_isNotInflated)
{
    ConnectedPair pair;
    ASSERT_EQ(pair.client.writeRawMemory(viewOf("abc"), {}, DataCompression::Deflate, DataType::RawData),
              SocketResult::Success);
    ReceivedData received;
    ASSERT_EQ(pair.server.readData(received, ReadDataContext()), SocketResult::Success);
    EXPECT_EQ(Tests::textOf(received.get<ReceivedRawData>().data), "abc");
}

TEST(TransferTest, rawData_ofNoBytes_isSentButRefused)
{
    ConnectedPair pair;
    EXPECT_EQ(pair.client.writeRawMemory({}, {}, DataCompression::None, DataType::RawData),
              SocketResult::Success);
    ReceivedData received;
    EXPECT_EQ(pair.server.readData(received, ReadDataContext()), SocketResult::Error);
    EXPECT_EQ(received.index(), 2u);
    EXPECT_TRUE(pair.server.isOpen());
}

TEST(TransferTest, rawData_beyond31Bits_isRefused)
{
    RawPeerPair pair;
    for (const char* size : {"2147483648", "4294967296", "9223372036854775807"}) {
        pair.peer.send(rawHeader(size));
        ReceivedData received;
        EXPECT_EQ(pair.socket.readData(received, ReadDataContext()), SocketResult::Error) << size;
    }
    EXPECT_TRUE(pair.socket.isOpen());
}

TEST(TransferTest, rawData_callsTheHooksButNotForThePath)
{
    RawPeerPair pair;
    const FileContext context{Io::Path(L"unused")};
    pair.peer.send(rawHeader("3") + "abc" + rawHeader("0"));
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Success);
    EXPECT_EQ(context.calls, "start end ");
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "start end start end ");
}

TEST(TransferTest, rawData_cutShort_isAnErrorAndKeepsWhatCame)
{
    RawPeerPair pair;
    const FileContext context{Io::Path(L"unused")};
    pair.peer.send(rawHeader("4") + "abc");
    pair.peer.close();
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "start end ");
    EXPECT_EQ(Tests::textOf(received.get<ReceivedRawData>().data), "abc");
}

TEST(TransferTest, readString_ofRawData_discardsIt)
{
    RawPeerPair pair;
    pair.peer.send(rawHeader("3") + "abc" + header(element("DataType", "0")));
    XmlString received = tree(L"old", L"one");
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Error);
    EXPECT_TRUE(received == tree(L"old", L"one"));
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Success);
}

TEST(TransferTest, readString_ofAFile_isAProgrammingErrorAndUnlocks)
{
    RawPeerPair pair;
    pair.peer.send(fileHeader("3", "0"));
    XmlString received;
    try {
        static_cast<void>(pair.socket.readString(received));
        FAIL();
    } catch (const StopException& stop) {
        EXPECT_EQ(stop.file(), "net/LegacySockets");
    }
    EXPECT_TRUE(pair.socket.isOpen());
    EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
}

TEST(TransferTest, hooks_thatThrow_leaveTheSocketUnlocked)
{
    class Throwing : public FileContext
    {
    public:
        using FileContext::FileContext;

        void onReceiveStart(const XmlString&) const override { throw std::string("refused"); }
    };

    const TemporaryFolder folder;
    RawPeerPair pair;
    const Throwing context(folder.file(L"f"));
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    EXPECT_THROW(static_cast<void>(pair.socket.readData(received, context)), std::string);
    EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
}

// Throws an Exception in the hook of that name.
class RaisingContext : public FileContext
{
public:
    RaisingContext(Io::Path path, std::string hook) : FileContext(std::move(path)), m_hook(std::move(hook)) {}

    Io::Path getFilePath(const XmlString& header) const override
    {
        Io::Path path = FileContext::getFilePath(header);
        raiseIn("path");
        return path;
    }

    void onReceiveStart(const XmlString& header) const override
    {
        FileContext::onReceiveStart(header);
        raiseIn("start");
    }

    void onReceiveEnd(const XmlString& header) const override
    {
        FileContext::onReceiveEnd(header);
        raiseIn("end");
    }

private:
    void raiseIn(const std::string& hook) const
    {
        if (hook == m_hook)
            throw Exception("refused");
    }

    std::string m_hook;
};

TEST(TransferTest, hooksOfAFile_thatRaiseAnException_endInAnError)
{
    const TemporaryFolder folder;
    for (const auto& [hook, calls] : {std::pair("path", "path "), std::pair("start", "path start "),
                                      std::pair("end", "path start end ")}) {
        RawPeerPair pair;
        const RaisingContext context(folder.file(L"f"), hook);
        pair.peer.send(fileHeader("3", "0") + "abc");
        ReceivedData received;
        EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error) << hook;
        EXPECT_EQ(context.calls, calls);
        EXPECT_TRUE(received.get<ReceivedFile>().path.isEmpty());
        EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
    }
}

TEST(TransferTest, hooksOfRawData_thatRaiseAnException_passItOn)
{
    for (const auto& [hook, calls] : {std::pair("start", "start "), std::pair("end", "start end ")}) {
        RawPeerPair pair;
        const RaisingContext context({}, hook);
        pair.peer.send(rawHeader("3") + "abc");
        ReceivedData received;
        EXPECT_THROW(static_cast<void>(pair.socket.readData(received, context)), Exception) << hook;
        EXPECT_EQ(context.calls, calls);
        EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
    }
}

TEST(TransferTest, getFilePath_thatThrowsWhatIsNoException_passesItOn)
{
    class Throwing : public FileContext
    {
    public:
        using FileContext::FileContext;

        Io::Path getFilePath(const XmlString&) const override { throw std::string("refused"); }
    };

    RawPeerPair pair;
    const Throwing context{Io::Path(L"unused")};
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    EXPECT_THROW(static_cast<void>(pair.socket.readData(received, context)), std::string);
    EXPECT_EQ(context.calls, "");
    EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
}

TEST(TransferTest, typeThatDoesNotExist_isAProgrammingErrorWithNothingChanged)
{
    for (const char* type : {"3", "7", "-1", "2147483647", "-2147483648"}) {
        RawPeerPair pair;
        pair.peer.send(header(element("DataType", type)));
        ReceivedData received = tree(L"old", L"one");
        try {
            static_cast<void>(pair.socket.readData(received, ReadDataContext()));
            FAIL() << type;
        } catch (const StopException& stop) {
            EXPECT_EQ(stop.file(), "net/LegacySockets");
        }
        EXPECT_TRUE(received.get<XmlString>() == tree(L"old", L"one"));
        EXPECT_TRUE(pair.socket.isOpen());
        EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
        pair.peer.send(header(element("DataType", "0")));
        EXPECT_EQ(pair.socket.readData(received, ReadDataContext()), SocketResult::Success);
    }
}

TEST(TransferTest, out_ofTheSameKind_isResetToo)
{
    RawPeerPair pair;
    ReceivedData received = ReceivedFile{tree(L"old", L"one"), Io::Path(L"old")};
    const FileContext context{Io::Path(L"unused")};
    pair.peer.send(header(element("DataType", "1")) + header(element("DataType", "2")));
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    ASSERT_EQ(received.index(), 1u);
    EXPECT_TRUE(received.get<ReceivedFile>().header == XmlString());
    EXPECT_TRUE(received.get<ReceivedFile>().path.isEmpty());
    received = ReceivedRawData{tree(L"old", L"one"), byteArrayOf("old")};
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    ASSERT_EQ(received.index(), 2u);
    EXPECT_TRUE(received.get<ReceivedRawData>().header == XmlString());
    EXPECT_TRUE(received.get<ReceivedRawData>().data.empty());
}

TEST(TransferTest, headerWithoutType_isAnError)
{
    RawPeerPair pair;
    const std::string end(1, '\0');
    pair.peer.send(header(element("FileSize", "0")) + "no tree" + end + end +
                   header(element("DataType", "0")));
    XmlString received;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pair.socket.readString(received), SocketResult::Error);
    EXPECT_EQ(pair.socket.readString(received), SocketResult::Success);
}

TEST(TransferTest, messagesGluedTogether_areReadOneByOne)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(header(element("DataType", "0")) + rawHeader("3") + "abc" + fileHeader("2", "0") + "de" +
                   header(element("DataType", "0") + element("a", "b")));
    const FileContext context(folder.file(L"f"));
    ReceivedData received;
    for (const std::size_t index : {0u, 2u, 1u, 0u}) {
        ASSERT_EQ(pair.socket.readData(received, context), SocketResult::Success);
        EXPECT_EQ(received.index(), index);
    }
    EXPECT_EQ(received.get<XmlString>().getChild(L"a"), String(L"b"));
    EXPECT_EQ(contentOf(folder.file(L"f")), "de");
}

TEST(TransferTest, threadsThatSend_neverMixTheirMessages)
{
    ConnectedPair pair;
    std::vector<std::thread> senders;
    for (int i = 0; i < 4; ++i) {
        senders.emplace_back([&pair, i] {
            const std::string data(200'000, static_cast<char>('a' + i));
            for (int round = 0; round < 10; ++round)
                EXPECT_EQ(
                    pair.client.writeRawMemory(viewOf(data), {}, DataCompression::None, DataType::RawData),
                    SocketResult::Success);
        });
    }
    for (int i = 0; i < 40; ++i) {
        ReceivedData received;
        ASSERT_EQ(pair.server.readData(received, ReadDataContext()), SocketResult::Success);
        const std::string text = Tests::textOf(received.get<ReceivedRawData>().data);
        EXPECT_EQ(text, std::string(200'000, text.at(0)));
    }
    for (std::thread& sender : senders)
        sender.join();
}

} // namespace
} // namespace Nolvex::Wx::Legacy
