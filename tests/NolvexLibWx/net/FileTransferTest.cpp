// SPDX-License-Identifier: MIT
// Messages whose body is a file.
#include "MessageSamples.h"

#include "NolvexLib/Io/FileSize.h"
#include "support/ProcessResources.h"
#include "support/SystemLimits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <thread>
#include <tuple>
#include <utility>

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

// Sends the first part of the bytes, is silent for that time, and sends the rest.
class PausingSender
{
public:
    PausingSender(RawPeerPair& pair, std::string bytes, std::size_t first, std::chrono::milliseconds pause)
        : m_thread([&pair, bytes = std::move(bytes), first, pause] {
              pair.peer.send(std::string_view(bytes).substr(0, first));
              std::this_thread::sleep_for(pause);
              pair.peer.send(std::string_view(bytes).substr(first));
          })
    {}

    ~PausingSender() { m_thread.join(); }

    PausingSender(const PausingSender&) = delete;
    PausingSender& operator=(const PausingSender&) = delete;

private:
    std::thread m_thread;
};

constexpr std::size_t PIECE = 65536;
constexpr std::chrono::milliseconds PAUSE(1300);

TEST(FileTransferTest, file_thatStalls_isGivenUpAfterThePatience)
{
    const TemporaryFolder folder;
    for (const bool isDeflated : {false, true}) {
        RawPeerPair pair;
        pair.socket.setFilePatience(std::chrono::milliseconds(1500));
        pair.peer.send(fileHeader("4", isDeflated ? "1" : "0", element("CompressedSize", "4")) + "x\x9c");
        const FileContext context(folder.file(L"f"));
        ReceivedData received;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
        EXPECT_GE(Tests::elapsedMs(start), 1400);
        EXPECT_LT(Tests::elapsedMs(start), 4000);
        EXPECT_EQ(context.calls, "path start end ");
    }
}

TEST(FileTransferTest, file_whoseSenderPausesWithinAPiece_arrives)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const PausingSender sender(pair, fileHeader("4", "0") + "abcd", fileHeader("4", "0").size() + 2, PAUSE);
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
    EXPECT_EQ(contentOf(folder.file(L"f")), "abcd");
}

TEST(FileTransferTest, file_whoseSenderPausesAtThePieceBoundary_arrives)
{
    const TemporaryFolder folder;
    const std::string text = Tests::incompressibleText(2 * PIECE);
    const std::string head = fileHeader(std::to_string(text.size()), "0");
    RawPeerPair pair;
    for (const std::size_t first : {std::size_t(0), PIECE}) {
        const PausingSender sender(pair, head + text, head.size() + first, PAUSE);
        ReceivedData received;
        EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
        EXPECT_TRUE(contentOf(folder.file(L"f")) == text);
    }
}

TEST(FileTransferTest, deflatedFile_whoseSenderPauses_arrives)
{
    const TemporaryFolder folder;
    const std::string text = Tests::incompressibleText(2 * PIECE);
    const std::string body = deflatedText(text);
    ASSERT_GT(body.size(), 2 * PIECE);
    const std::string head =
        fileHeader(std::to_string(text.size()), "1", element("CompressedSize", std::to_string(body.size())));
    RawPeerPair pair;
    for (const std::size_t first : {PIECE / 2, PIECE}) {
        const PausingSender sender(pair, head + body, head.size() + first, PAUSE);
        ReceivedData received;
        EXPECT_EQ(pair.socket.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
        EXPECT_TRUE(contentOf(folder.file(L"f")) == text);
    }
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

TEST(FileTransferTest, file_thatIsPassedOnWithAnotherCompression_arrives)
{
    const TemporaryFolder folder;
    const Io::Path path = folder.file(L"f", "abc");
    using enum DataCompression;
    for (const auto& [first, second] : {std::pair(None, Deflate), std::pair(Deflate, None)}) {
        ConnectedPair pair;
        ASSERT_EQ(pair.client.writeFile(path, tree(L"k", L"v"), first, DataType::File),
                  SocketResult::Success);
        ReceivedData received;
        ASSERT_EQ(pair.server.readData(received, FileContext(folder.file(L"g"))), SocketResult::Success);
        // What is passed on need not be what came.
        const Io::Path edited = folder.file(L"edited", "abcdef");
        received.get<ReceivedFile>().path = edited;
        ASSERT_EQ(pair.server.writeData(received, second, DataType::File), SocketResult::Success);
        const FileContext context(folder.file(L"h"));
        ASSERT_EQ(pair.client.readData(received, context), SocketResult::Success);
        EXPECT_EQ(contentOf(folder.file(L"h")), "abcdef");
        EXPECT_EQ(context.seenHeader.getChild(L"k"), String(L"v"));
        EXPECT_EQ(context.seenHeader.getChild(L"FileSize"), String(L"6"));
    }
}

// One run, whatever its length.
std::string singleRun(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target);
    Tests::writeText(stream, text);
    stream.finish();
    return Tests::textOf(ArrayView<const std::byte>(target.bytes()));
}

// A run of exactly that length; `text` is what it holds.
std::string runOfLength(std::size_t length, std::string& text)
{
    std::string run;
    for (std::size_t size = length; run.size() != length && size > 0; --size) {
        text = Tests::incompressibleText(size);
        run = singleRun(text);
    }
    return run;
}

SocketResult receiveDeflated(RawPeerPair& pair, const Io::Path& path, const std::string& body,
                             std::size_t announced, std::size_t fileSize)
{
    std::thread sender([&] {
        pair.peer.send(
            fileHeader(std::to_string(fileSize), "1", element("CompressedSize", std::to_string(announced))) +
            body);
    });
    ReceivedData received;
    const SocketResult result = pair.socket.readData(received, FileContext(path));
    sender.join();
    return result;
}

TEST(FileTransferTest, deflatedFile_thatFillsItsPiecesExactly_arrives)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    std::string text;
    const std::string piece = runOfLength(65536, text);
    ASSERT_EQ(piece.size(), 65536u);
    const Io::Path path = folder.file(L"f");
    ASSERT_EQ(receiveDeflated(pair, path, piece, 65536, text.size()), SocketResult::Success);
    EXPECT_TRUE(contentOf(path) == text);
    ASSERT_EQ(receiveDeflated(pair, path, piece + piece, 2 * 65536, 2 * text.size()), SocketResult::Success);
    EXPECT_TRUE(contentOf(path) == text + text);
    std::string filled = singleRun("abc");
    filled.resize(65536);
    ASSERT_EQ(receiveDeflated(pair, path, piece + filled, 2 * 65536, text.size() + 3), SocketResult::Success);
    EXPECT_TRUE(contentOf(path) == text + "abc");
    pair.peer.send(header(element("DataType", "0")));
    XmlString next;
    EXPECT_EQ(pair.socket.readString(next), SocketResult::Success);
}

TEST(FileTransferTest, deflatedFile_thatDoesNotBeginAnewEvery65536Bytes_isAnError)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string body = singleRun(Tests::incompressibleText(100'000));
    ASSERT_GT(body.size(), 65536u);
    EXPECT_EQ(receiveDeflated(pair, folder.file(L"f"), body, body.size(), 100'000), SocketResult::Error);
}

TEST(FileTransferTest, deflatedFile_whoseAnnouncedLengthWasCut_isReadSoFar)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const std::string text = Tests::incompressibleText(100'000);
    const std::string body = deflatedText(text);
    ASSERT_GT(body.size(), 65536u);
    EXPECT_EQ(receiveDeflated(pair, folder.file(L"f"), body, 65536, text.size()), SocketResult::Success);
    const std::string received = contentOf(folder.file(L"f"));
    EXPECT_GT(received.size(), 60'000u);
    EXPECT_LT(received.size(), 65536u);
    EXPECT_TRUE(received == text.substr(0, received.size()));
}

TEST(FileTransferTest, file_thatMayNotBeWritten_isAnError)
{
    const TemporaryFolder folder;
    const Io::Path path = Tests::unwritableFile(folder.path());
    if (path.isEmpty())
        GTEST_SKIP() << "This system lets everything be written.";
    RawPeerPair pair;
    const FileContext context(path);
    pair.peer.send(fileHeader("3", "0") + "abc");
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_EQ(context.calls, "path start end ");
}

// Notes the most memory in use between the hooks.
class WatchingContext : public FileContext
{
public:
    using FileContext::FileContext;

    void onReceiveStart(const XmlString&) const override
    {
        m_first = Tests::privateMemory();
        m_watcher = std::thread([this] {
            while (!m_isOver) {
                m_most = std::max(m_most, Tests::privateMemory());
                ++m_looks;
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        });
    }

    void onReceiveEnd(const XmlString&) const override
    {
        m_isOver = true;
        m_watcher.join();
    }

    int looks() const { return m_looks; }

    std::size_t growth() const { return m_most > m_first ? m_most - m_first : 0; }

private:
    mutable std::size_t m_first = 0;
    mutable std::size_t m_most = 0;
    mutable int m_looks = 0;
    mutable std::atomic<bool> m_isOver = false;
    mutable std::thread m_watcher;
};

TEST(FileTransferTest, deflatedFile_ofManyMegabytes_isReceivedInBoundedMemory)
{
    // Compressed faster than the raw peer loses patience, also on a busy machine.
    constexpr std::size_t SIZE = 64 << 20;
    const TemporaryFolder folder;
    const Io::Path path = folder.file(L"f", "");
    std::filesystem::resize_file(path.native(), SIZE);
    // The first wait for a header must be longer than compressing takes, so the sender comes first.
    RawPeerPair raw;
    std::string message;
    std::thread taker([&] { message = raw.peer.receiveAll(); });
    ASSERT_EQ(raw.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    raw.socket.close();
    taker.join();
    RawPeerPair pair;
    std::thread sender([&] { pair.peer.send(message); });
    const WatchingContext context(folder.file(L"g"));
    ReceivedData received;
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Success);
    sender.join();
    EXPECT_EQ(Io::fileSize(folder.file(L"g")), SIZE);
    EXPECT_GT(context.looks(), 3);
    EXPECT_LT(context.growth(), 8'000'000u);
    Io::FileInputStream file(folder.file(L"g"));
    std::array<char, 65536> piece;
    bool isZero = true;
    while (const std::int64_t count = file.read(piece.data(), 65536))
        isZero = isZero && std::all_of(piece.data(), piece.data() + count, [](char c) { return c == '\0'; });
    EXPECT_TRUE(isZero);
}

} // namespace
} // namespace Nolvex::Wx::Legacy
