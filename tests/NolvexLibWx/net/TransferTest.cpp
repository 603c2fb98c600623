// SPDX-License-Identifier: MIT
// Messages from one end of the library to the other, and their bytes on the wire.
#include "Connections.h"

#include "../../NolvexLib/Io/Bytes.h"
#include "../../NolvexLib/Io/TemporaryFolder.h"
#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"
#include "NolvexLib/Io/DeflateInputStream.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::byteArrayOf;
using Tests::bytes;
using Tests::ConnectedPair;
using Tests::element;
using Tests::header;
using Tests::RawPeerPair;
using Tests::TemporaryFolder;
using Tests::tree;
using Tests::viewOf;

// Writes every file to one path and notes what happens.
class FileContext : public ReadDataContext
{
public:
    explicit FileContext(Io::Path path) : m_path(std::move(path)) {}

    Io::Path getFilePath(const XmlString& header) const override
    {
        calls += "path ";
        seenHeader = header;
        return m_path;
    }

    void onReceiveStart(const XmlString&) const override { calls += "start "; }

    void onReceiveEnd(const XmlString&) const override { calls += "end "; }

    mutable std::string calls;
    mutable XmlString seenHeader;

private:
    Io::Path m_path;
};

std::string contentOf(const Io::Path& path)
{
    Io::FileInputStream stream(path);
    return Tests::readAll(stream);
}

// Lines that resemble each other, not all too much.
std::string compressibleText(std::size_t size)
{
    const std::string noise = Tests::incompressibleText(size / 4 + 1);
    std::string text;
    for (std::size_t i = 0; text.size() < size; ++i)
        text.append(noise, i * 64 % noise.size(), 64).append(192, static_cast<char>('a' + i % 26));
    text.resize(size);
    return text;
}

std::string fileHeader(const std::string& size, const std::string& compression, const std::string& more = "")
{
    return header(element("DataType", "1") + element("FileSize", size) + element("Compressed", compression) +
                  more);
}

std::string rawHeader(const std::string& size)
{
    return header(element("DataType", "2") + element("FileSize", size) + element("Compressed", "0"));
}

std::string deflatedText(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target, 6, 65536);
    Tests::writeText(stream, text);
    stream.finish();
    return Tests::textOf(ArrayView<const std::byte>(target.bytes()));
}

TEST(TransferTest, writeString_ofAnEmptyTree_sendsTheTypeAlone)
{
    RawPeerPair pair;
    ASSERT_EQ(pair.socket.writeString({}), SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("<root><DataType>0</DataType></root>\0"));
}

TEST(TransferTest, writeString_putsTheTypeInFrontOfTheChildren)
{
    RawPeerPair pair;
    XmlString message;
    message.addChild(L"b", String(L"\x00e9<&"));
    message.addChild(L"a", tree(L"c", L"d"));
    ASSERT_EQ(pair.socket.writeString(message), SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(),
              bytes("<root><DataType>0</DataType><b>\xC3\xA9&lt;&amp;</b><a><c>d</c></a></root>\0"));
}

TEST(TransferTest, writeFile_sendsTheHeaderAndTheBytes)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "content");
    ASSERT_EQ(pair.socket.writeFile(path, tree(L"name", L"x"), DataCompression::None, DataType::File),
              SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("<root><DataType>1</DataType><name>x</name><FileSize>7</FileSize>"
                                            "<Compressed>0</Compressed></root>\0content"));
}

TEST(TransferTest, writeFile_deflated_announcesBothSizes)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string text(1000, 'x');
    const Io::Path path = folder.file(L"f", text);
    ASSERT_EQ(pair.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    pair.socket.close();
    const std::string head = pair.peer.receiveText();
    const std::string body = pair.peer.receiveAll();
    EXPECT_EQ(head, fileHeader("1000", "1", element("CompressedSize", std::to_string(body.size()))));
    Io::MemoryInputStream source(viewOf(body));
    Io::DeflateInputStream stream(source);
    EXPECT_EQ(Tests::readAll(stream), text);
}

TEST(TransferTest, writeFile_deflated_beginsAnewEvery65536Bytes)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string text = compressibleText(1'000'000);
    const Io::Path path = folder.file(L"f", text);
    std::string body;
    std::thread reader([&] {
        pair.peer.receiveText();
        body = pair.peer.receiveAll();
    });
    EXPECT_EQ(pair.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    pair.socket.close();
    reader.join();
    EXPECT_GT(body.size(), 3 * 65536u);
    std::string inflated;
    for (std::size_t i = 0; i < body.size(); i += 65536) {
        Io::MemoryInputStream source(viewOf(std::string_view(body).substr(i, 65536)));
        Io::DeflateInputStream stream(source);
        inflated += Tests::readAll(stream);
    }
    EXPECT_TRUE(inflated == text);
}

TEST(TransferTest, writeFile_withUnknownCompression_sendsTheBytesAsTheyAre)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "abc");
    ASSERT_EQ(pair.socket.writeFile(path, {}, DataCompression(2), DataType::File), SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), fileHeader("3", "2") + "abc");
}

TEST(TransferTest, writeFile_writesTheTypeUnchecked)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "");
    ASSERT_EQ(pair.socket.writeFile(path, {}, DataCompression::None, DataType(9)), SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(),
              header(element("DataType", "9") + element("FileSize", "0") + element("Compressed", "0")));
}

TEST(TransferTest, writeFile_thatIsMissing_isAnErrorAndSendsNothing)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    for (const DataCompression compression : {DataCompression::None, DataCompression::Deflate})
        EXPECT_EQ(pair.socket.writeFile(folder.file(L"none"), {}, compression, DataType::File),
                  SocketResult::Error);
    EXPECT_EQ(pair.socket.writeFile(folder.path(), {}, DataCompression::None, DataType::File),
              SocketResult::Error);
    EXPECT_TRUE(pair.socket.isOpen());
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), "");
}

TEST(TransferTest, writeRawMemory_neverCompresses)
{
    RawPeerPair pair;
    ASSERT_EQ(pair.socket.writeRawMemory(viewOf("abc"), tree(L"k", L"v"), DataCompression::Deflate,
                                         DataType::RawData),
              SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("<root><DataType>2</DataType><k>v</k><FileSize>3</FileSize>"
                                            "<Compressed>1</Compressed></root>\0abc"));
}

TEST(TransferTest, writeData_ofAnEmptyVariant_sendsNothing)
{
    RawPeerPair pair;
    EXPECT_EQ(pair.socket.writeData({}, DataCompression::None, DataType::File), SocketResult::Error);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), "");
}

TEST(TransferTest, writeData_ofAText_ignoresCompressionAndType)
{
    RawPeerPair pair;
    EXPECT_EQ(pair.socket.writeData(XmlString(), DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(), header(element("DataType", "0")));
}

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

class FileTest : public testing::TestWithParam<std::tuple<std::size_t, DataCompression>>
{};

TEST_P(FileTest, file_arrivesBothWays)
{
    const auto [size, compression] = GetParam();
    const TemporaryFolder folder;
    ConnectedPair pair;
    const std::string text = compressibleText(size);
    const ReceivedFile file{tree(L"k", L"v"), folder.file(L"\x00e9\x4e2d", text)};
    for (const bool isAnswer : {false, true}) {
        TcpSocket& sender = isAnswer ? pair.server : static_cast<TcpSocket&>(pair.client);
        TcpSocket& receiver = isAnswer ? static_cast<TcpSocket&>(pair.client) : pair.server;
        std::thread sending([&, mode = compression] {
            EXPECT_EQ(sender.writeData(file, mode, DataType::File), SocketResult::Success);
        });
        const FileContext context(folder.file(L"received"));
        ReceivedData received;
        EXPECT_EQ(receiver.readData(received, context), SocketResult::Success);
        sending.join();
        EXPECT_EQ(context.calls, "path start end ");
        ASSERT_EQ(received.index(), 1u);
        EXPECT_EQ(received.get<ReceivedFile>().path, folder.file(L"received"));
        EXPECT_TRUE(received.get<ReceivedFile>().header == context.seenHeader);
        EXPECT_EQ(context.seenHeader.getChild(L"k"), String(L"v"));
        EXPECT_TRUE(contentOf(folder.file(L"received")) == text);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, FileTest,
                         testing::Combine(testing::Values(0, 1, 65535, 65536, 65537, 10'000'000),
                                          testing::Values(DataCompression::None, DataCompression::Deflate)));

TEST(TransferTest, file_thatIsPassedOn_arrives)
{
    const TemporaryFolder folder;
    ConnectedPair pair;
    const Io::Path path = folder.file(L"f", "abc");
    ASSERT_EQ(pair.client.writeFile(path, {}, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    ReceivedData received;
    ASSERT_EQ(pair.server.readData(received, FileContext(folder.file(L"g"))), SocketResult::Success);
    ASSERT_EQ(pair.server.writeData(received, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    ASSERT_EQ(pair.client.readData(received, FileContext(folder.file(L"h"))), SocketResult::Success);
    EXPECT_EQ(contentOf(folder.file(L"h")), "abc");
}

TEST(TransferTest, file_overwritesWhatIsThere)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    ASSERT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f", "longer than that"))),
              SocketResult::Success);
    EXPECT_EQ(contentOf(folder.file(L"f")), "abc");
}

TEST(TransferTest, file_withUnknownCompression_isRefused)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const FileContext context(folder.file(L"f"));
    pair.peer.send(fileHeader("3", "2") + "abc");
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
    EXPECT_FALSE(Io::fileSize(folder.file(L"f")));
}

TEST(TransferTest, file_withoutMetadata_isRefusedBetweenTheHooks)
{
    RawPeerPair pair;
    const FileContext context{Io::Path(L"unused")};
    pair.peer.send(header(element("DataType", "1")));
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
    EXPECT_EQ(received.index(), 1u);
}

TEST(TransferTest, file_cutShort_leavesWhatCame)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("4", "0") + "abc");
    pair.peer.close();
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_EQ(contentOf(folder.file(L"f")), "abc");
}

TEST(TransferTest, file_thatStalls_isGivenUp)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("4", "0") + "abc");
    ReceivedData received;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_LT(Tests::elapsedMs(start), 3000);
}

TEST(TransferTest, file_thatPausesShortly_arrives)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    std::thread sender([&] {
        pair.peer.send(fileHeader("4", "0") + "ab");
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        pair.peer.send("cd");
    });
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
    sender.join();
    EXPECT_EQ(contentOf(folder.file(L"f")), "abcd");
}

TEST(TransferTest, file_intoAFolderThatIsMissing_isAnError)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const FileContext context(folder.file(L"none") / L"f");
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
}

TEST(TransferTest, deflatedFile_fromAForeignSender_arrives)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string text = compressibleText(1'000'000);
    const std::string body = deflatedText(text);
    std::thread sender([&] {
        pair.peer.send(fileHeader("1000000", "1", element("CompressedSize", std::to_string(body.size()))) +
                       body);
    });
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
    sender.join();
    EXPECT_TRUE(contentOf(folder.file(L"f")) == text);
}

TEST(TransferTest, deflatedFile_thatIsBroken_isAnErrorAndEndsTheHooks)
{
    const TemporaryFolder folder;
    std::string body = deflatedText("some text that was compressed");
    body[body.size() / 2] ^= '\x40';
    RawPeerPair pair;
    const FileContext context(folder.file(L"f"));
    pair.peer.send(fileHeader("29", "1", element("CompressedSize", std::to_string(body.size()))) + body);
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
}

TEST(TransferTest, deflatedFile_thatHoldsMoreThanAnnounced_isAnError)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string body = deflatedText(std::string(10'000'000, 'x'));
    pair.peer.send(fileHeader("1000", "1", element("CompressedSize", std::to_string(body.size()))) + body);
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_LE(Io::fileSize(folder.file(L"f")).value_or(0), 65536u);
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

// What is logged while it lives.
class LogReader
{
public:
    LogReader()
    {
        DebugLogger::setSink([this](const DebugLogger::Record& record) {
            const std::lock_guard lock(m_mutex);
            if (record.category == std::string_view("socket"))
                m_text.append(record.function).append(": ").append(record.message).append("\n");
        });
    }

    ~LogReader()
    {
        DebugLogger::setSink({});
        setDevelopmentEnviro(false);
    }

    std::string text()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_text, {});
    }

private:
    std::mutex m_mutex;
    std::string m_text;
};

TEST(TransferTest, log_isForDevelopersOnly)
{
    LogReader log;
    RawPeerPair pair;
    pair.peer.send(rawHeader("0") + rawHeader("0"));
    ReceivedData received;
    setDevelopmentEnviro(false);
    EXPECT_EQ(pair.socket.readData(received, ReadDataContext()), SocketResult::Error);
    EXPECT_EQ(log.text(), "");
    setDevelopmentEnviro(true);
    EXPECT_EQ(pair.socket.readData(received, ReadDataContext()), SocketResult::Error);
    EXPECT_EQ(log.text(), "Nolvex::Wx::Legacy::TcpSocket::readHeader: Received header:<root><DataType>2"
                          "</DataType><FileSize>0</FileSize><Compressed>0</Compressed></root>\n"
                          "Nolvex::Wx::Legacy::TcpSocket::readData: Receiving data of size 0\n"
                          "Nolvex::Wx::Legacy::TcpSocket::readData: Received invalid XML header (couldn't "
                          "read file size)\n");
}

TEST(TransferTest, log_tellsOfEachStep)
{
    const TemporaryFolder folder;
    LogReader log;
    setDevelopmentEnviro(true);
    RawPeerPair pair;
    pair.peer.send(rawHeader("x") + fileHeader("2", "0") + "ab" + rawHeader("1") + "a" +
                   fileHeader("2", "0") + "a");
    pair.peer.close();
    const FileContext context(folder.file(L"f"));
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_NE(log.text().find("Nolvex::Wx::Legacy::TcpSocket::readData::DataVisitor::getMetadata: "
                              "Received invalid XML header (couldn't read metadata)\n"),
              std::string::npos);
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Success);
    const std::string fileLog = log.text();
    EXPECT_NE(fileLog.find("Read piece, remaining 0\n"), std::string::npos);
    EXPECT_NE(fileLog.find("Successfully read scene\n"), std::string::npos);
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Success);
    EXPECT_NE(log.text().find("Data successfully received\n"), std::string::npos);
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_NE(log.text().find("Received less data than I should: 1/2\n"), std::string::npos);
}

TEST(TransferTest, log_tellsOfAPieceNotWritten)
{
    LogReader log;
    setDevelopmentEnviro(true);
    RawPeerPair pair;
    std::thread peer([&] {
        pair.peer.receiveText();
        pair.peer.reset();
    });
    const std::string data(50'000'000, 'x');
    EXPECT_EQ(pair.socket.writeRawMemory(viewOf(data), {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
    peer.join();
    const std::string text = log.text();
    EXPECT_EQ(text.find("Nolvex::Wx::Legacy::TcpSocket::writeRawMemory: !!!!! FAILED TO WRITE CHUNK "), 0u);
    EXPECT_EQ(text.substr(text.size() - 9), " / 65536\n");
}

} // namespace
} // namespace Nolvex::Wx::Legacy
