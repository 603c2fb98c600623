// SPDX-License-Identifier: MIT
// Tests which bytes the messages become on the wire.
#include "MessageSamples.h"

#include "NolvexLib/Io/DeflateInputStream.h"
#include "NolvexLib/Io/MemoryInputStream.h"
#include "support/ProcessResources.h"
#include "support/SystemLimits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::bytes;
using Tests::ConnectedPair;
using Tests::RawPeerPair;
using Tests::tree;

TEST(SendingTest, writeString_ofAnEmptyTree_sendsTheTypeAlone)
{
    RawPeerPair pair;
    ASSERT_EQ(pair.socket.writeString({}), SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("<root><DataType>0</DataType></root>\0"));
}

TEST(SendingTest, writeString_putsTheTypeInFrontOfTheChildren)
{
    RawPeerPair pair;
    XmlString message;
    message.addChild(L"b", String(L"\x00e9<&"));
    message.addChild(L"a", tree(L"c", L"d"));
    ASSERT_EQ(pair.socket.writeString(message), SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(),
              bytes("<root><DataType>0</DataType><b>\xC3\xA9&lt;&amp;</b><a><c>d</c></a></root>\0"));
}

TEST(SendingTest, writeFile_sendsTheHeaderAndTheBytes)
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

TEST(SendingTest, writeFile_deflated_announcesBothSizes)
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

TEST(SendingTest, writeFile_deflated_beginsAnewEvery65536Bytes)
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

TEST(SendingTest, writeFile_withUnknownCompression_sendsTheBytesAsTheyAre)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "abc");
    ASSERT_EQ(pair.socket.writeFile(path, {}, DataCompression(2), DataType::File), SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), fileHeader("3", "2") + "abc");
}

TEST(SendingTest, writeFile_writesTheTypeUnchecked)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "");
    ASSERT_EQ(pair.socket.writeFile(path, {}, DataCompression::None, DataType(9)), SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(),
              header(element("DataType", "9") + element("FileSize", "0") + element("Compressed", "0")));
}

TEST(SendingTest, writeFile_thatIsMissing_isAnErrorAndSendsNothing)
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

TEST(SendingTest, writeRawMemory_neverCompresses)
{
    RawPeerPair pair;
    ASSERT_EQ(pair.socket.writeRawMemory(viewOf("abc"), tree(L"k", L"v"), DataCompression::Deflate,
                                         DataType::RawData),
              SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), bytes("<root><DataType>2</DataType><k>v</k><FileSize>3</FileSize>"
                                            "<Compressed>1</Compressed></root>\0abc"));
}

TEST(SendingTest, writeData_ofAnEmptyVariant_sendsNothing)
{
    RawPeerPair pair;
    EXPECT_EQ(pair.socket.writeData({}, DataCompression::None, DataType::File), SocketResult::Error);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), "");
}

TEST(SendingTest, writeData_ofAText_ignoresCompressionAndType)
{
    RawPeerPair pair;
    EXPECT_EQ(pair.socket.writeData(XmlString(), DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    EXPECT_EQ(pair.peer.receiveText(), header(element("DataType", "0")));
}

// Makes a file of zeros that takes no room on the disk but seconds to compress.
Io::Path largeFile(const TemporaryFolder& folder)
{
    Io::Path path = folder.file(L"large", "");
    std::filesystem::resize_file(path.native(), 300'000'000);
    return path;
}

TEST(SendingTest, closeOnAnotherThread_endsCompressing)
{
    using Clock = std::chrono::steady_clock;
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = largeFile(folder);
    Clock::time_point closing;
    std::thread closer([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        closing = Clock::now();
        pair.socket.close();
    });
    EXPECT_EQ(pair.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File), SocketResult::Error);
    const Clock::time_point end = Clock::now();
    closer.join();
    EXPECT_LT(end - closing, std::chrono::milliseconds(200));
    EXPECT_GE(end, closing);
    EXPECT_EQ(pair.peer.receiveAll(), "");
}

TEST(SendingTest, timeLimitThatEndsWhileCompressing_endsBehindTheHeader)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", Tests::incompressibleText(4'000'000));
    EXPECT_EQ(pair.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File, 1),
              SocketResult::Timeout);
    EXPECT_TRUE(pair.socket.isOpen());
    pair.socket.close();
    const std::string head = pair.peer.receiveText();
    EXPECT_NE(head.find("<FileSize>4000000</FileSize><Compressed>1</Compressed><CompressedSize>"),
              std::string::npos);
    EXPECT_EQ(pair.peer.receiveAll(), "");
}

TEST(SendingTest, writeFile_ofIncompressibleData_holdsItOnce)
{
    constexpr std::size_t SIZE = 32 << 20;
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", Tests::incompressibleText(SIZE));
    const std::size_t before = Tests::privateMemory();
    std::size_t growth = 0;
    std::thread reader([&] {
        // The header comes when the whole body is compressed. The memory is held until the peer has read the
        // body.
        pair.peer.receiveText();
        growth = std::max(Tests::privateMemory(), before) - before;
        pair.peer.receiveAll();
    });
    EXPECT_EQ(pair.socket.writeFile(path, {}, DataCompression::Deflate, DataType::File),
              SocketResult::Success);
    pair.socket.close();
    reader.join();
    if (growth == 0)
        GTEST_SKIP() << "This system does not count the memory of a process.";
    // Some of the memory was the process's own before.
    EXPECT_GT(growth, SIZE - SIZE / 64);
#ifndef NOLVEX_SANITIZED
    EXPECT_LT(growth, SIZE + SIZE / 16 + 4'000'000);
#endif
}

TEST(SendingTest, writeFile_thatHoldsLessThanItsSize_isAnError)
{
    const Io::Path path = Tests::fileShorterThanItsSize();
    if (path.isEmpty())
        GTEST_SKIP() << "This system has no such file.";
    RawPeerPair pair;
    for (const DataCompression compression : {DataCompression::Deflate, DataCompression::None})
        EXPECT_EQ(pair.socket.writeFile(path, {}, compression, DataType::File), SocketResult::Error);
}

TEST(SendingTest, writeFile_thatHoldsMoreThanItsSize_sendsWhatWasAnnounced)
{
    const Io::Path path = Tests::fileLongerThanItsSize();
    if (path.isEmpty())
        GTEST_SKIP() << "This system has no such file.";
    const TemporaryFolder folder;
    ConnectedPair pair;
    for (const DataCompression compression : {DataCompression::Deflate, DataCompression::None}) {
        EXPECT_EQ(pair.client.writeFile(path, {}, compression, DataType::File), SocketResult::Success);
        ReceivedData received;
        EXPECT_EQ(pair.server.readData(received, FileContext(folder.file(L"f"))), SocketResult::Success);
        EXPECT_EQ(contentOf(folder.file(L"f")), "");
    }
}

TEST(SendingTest, writeFile_ofNoBytes_sendsTheHeaderAlone)
{
    const TemporaryFolder folder;
    RawPeerPair pair;
    const Io::Path path = folder.file(L"f", "");
    EXPECT_EQ(pair.socket.writeFile(path, {}, DataCompression::None, DataType::File), SocketResult::Success);
    EXPECT_EQ(pair.socket.writeString({}), SocketResult::Success);
    pair.socket.close();
    EXPECT_EQ(pair.peer.receiveAll(), fileHeader("0", "0") + header(element("DataType", "0")));
}

} // namespace
} // namespace Nolvex::Wx::Legacy
