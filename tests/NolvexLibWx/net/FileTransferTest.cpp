// SPDX-License-Identifier: MIT
// Messages whose body is a file.
#include "MessageSamples.h"

#include "NolvexLib/Io/FileSize.h"

#include <gtest/gtest.h>

#include <thread>
#include <tuple>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::ConnectedPair;
using Tests::RawPeerPair;
using Tests::tree;

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

TEST(FileTransferTest, file_thatIsPassedOn_arrives)
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

TEST(FileTransferTest, file_overwritesWhatIsThere)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    ASSERT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f", "longer than that"))),
              SocketResult::Success);
    EXPECT_EQ(contentOf(folder.file(L"f")), "abc");
}

TEST(FileTransferTest, file_withUnknownCompression_isRefused)
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

TEST(FileTransferTest, file_withoutMetadata_isRefusedBetweenTheHooks)
{
    RawPeerPair pair;
    const FileContext context{Io::Path(L"unused")};
    pair.peer.send(header(element("DataType", "1")));
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
    EXPECT_EQ(received.index(), 1u);
}

TEST(FileTransferTest, file_cutShort_leavesWhatCame)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("4", "0") + "abc");
    pair.peer.close();
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_EQ(contentOf(folder.file(L"f")), "abc");
}

TEST(FileTransferTest, file_thatStalls_isGivenUp)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    pair.peer.send(fileHeader("4", "0") + "abc");
    ReceivedData received;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_LT(Tests::elapsedMs(start), 3000);
}

TEST(FileTransferTest, file_thatPausesShortly_arrives)
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

TEST(FileTransferTest, file_intoAFolderThatIsMissing_isAnError)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const FileContext context(folder.file(L"none") / L"f");
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
}

TEST(FileTransferTest, deflatedFile_fromAForeignSender_arrives)
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

TEST(FileTransferTest, deflatedFile_thatIsBroken_isAnErrorAndEndsTheHooks)
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

TEST(FileTransferTest, deflatedFile_thatHoldsMoreThanAnnounced_isAnError)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string body = deflatedText(std::string(10'000'000, 'x'));
    pair.peer.send(fileHeader("1000", "1", element("CompressedSize", std::to_string(body.size()))) + body);
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Error);
    EXPECT_LE(Io::fileSize(folder.file(L"f")).value_or(0), 65536u);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
