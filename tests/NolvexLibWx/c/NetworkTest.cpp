// SPDX-License-Identifier: MIT
#include "NolvexLibWx/c/Nolvex.h"

#include "NolvexLibWx/net/TcpClient.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

constexpr std::int64_t PATIENCE_MS = 5000;

struct CNetworkTest : testing::Test
{
    NolvexListener* listener = nullptr;
    NolvexConnection* sender = nullptr;
    NolvexConnection* receiver = nullptr;

    CNetworkTest()
    {
        EXPECT_EQ(nolvexListen("127.0.0.1", 0, &listener), NOLVEX_OK);
        EXPECT_EQ(nolvexConnect("127.0.0.1", nolvexListenerPort(listener), 5, &sender), NOLVEX_OK);
        EXPECT_EQ(nolvexAccept(listener, 1, &receiver), NOLVEX_OK);
    }

    ~CNetworkTest() override
    {
        nolvexCloseConnection(sender);
        nolvexCloseConnection(receiver);
        nolvexCloseListener(listener);
    }

    // Receives while `send` sends on another thread.
    template<class Send>
    NolvexStatus exchange(const Send& send, NolvexMessage** message, NolvexChoosePath choose = nullptr,
                          void* context = nullptr) const
    {
        std::thread sending(send);
        const NolvexStatus status = nolvexReceive(receiver, PATIENCE_MS, choose, context, message);
        sending.join();
        return status;
    }
};

int chooseContext(void* context, const char* /*header*/, char* path, size_t capacity)
{
    const auto* wanted = static_cast<const std::string*>(context);
    if (wanted->size() >= capacity)
        return 0;
    std::memcpy(path, wanted->c_str(), wanted->size() + 1);
    return 1;
}

std::string temporaryFile(const char* name)
{
    return (std::filesystem::temp_directory_path() / name).string();
}

} // namespace

TEST_F(CNetworkTest, text_arrivesAsXml)
{
    NolvexMessage* message = nullptr;
    const auto send = [this] {
        EXPECT_EQ(nolvexSendText(sender, "<root><Name>\xC3\xA4</Name></root>", PATIENCE_MS), NOLVEX_OK);
    };
    ASSERT_EQ(exchange(send, &message), NOLVEX_OK);
    EXPECT_EQ(nolvexMessageKind(message), NOLVEX_TEXT);
    EXPECT_STREQ(nolvexMessageXml(message), "<root><DataType>0</DataType><Name>\xC3\xA4</Name></root>");
    EXPECT_STREQ(nolvexMessagePath(message), "");
    std::size_t size = 7;
    EXPECT_EQ(nolvexMessageData(message, &size), nullptr);
    EXPECT_EQ(size, 0u);
    nolvexFreeMessage(message);
}

TEST_F(CNetworkTest, memory_arrivesByteByByte)
{
    NolvexMessage* message = nullptr;
    const auto send = [this] {
        EXPECT_EQ(nolvexSendMemory(sender, "a\0b", 3, nullptr, NOLVEX_NO_TIME_LIMIT), NOLVEX_OK);
    };
    ASSERT_EQ(exchange(send, &message), NOLVEX_OK);
    EXPECT_EQ(nolvexMessageKind(message), NOLVEX_MEMORY);
    std::size_t size = 0;
    const void* const data = nolvexMessageData(message, &size);
    ASSERT_EQ(size, 3u);
    EXPECT_EQ(std::memcmp(data, "a\0b", 3), 0);
    nolvexFreeMessage(message);
}

TEST_F(CNetworkTest, file_isWrittenWhereTheCallerSays)
{
    const std::string source = temporaryFile("nolvex-c-source");
    std::string target = temporaryFile("nolvex-c-target");
    std::ofstream(source, std::ios::binary) << "content";
    NolvexMessage* message = nullptr;
    const auto send = [&] {
        EXPECT_EQ(
            nolvexSendFile(sender, source.c_str(), "<root><Name>x</Name></root>", 1, NOLVEX_NO_TIME_LIMIT),
            NOLVEX_OK);
    };
    ASSERT_EQ(exchange(send, &message, chooseContext, &target), NOLVEX_OK);
    EXPECT_EQ(nolvexMessageKind(message), NOLVEX_FILE);
    EXPECT_EQ(nolvexMessagePath(message), target);
    EXPECT_NE(std::string(nolvexMessageXml(message)).find("<Name>x</Name>"), std::string::npos);
    nolvexFreeMessage(message);
    std::string content;
    std::ifstream(target, std::ios::binary) >> content;
    EXPECT_EQ(content, "content");
    std::filesystem::remove(source);
    std::filesystem::remove(target);
}

TEST_F(CNetworkTest, fileWithoutAPlace_isRefusedWithASentence)
{
    const std::string source = temporaryFile("nolvex-c-refused");
    std::ofstream(source, std::ios::binary) << "content";
    NolvexMessage* message = nullptr;
    const auto send = [&] { (void)nolvexSendFile(sender, source.c_str(), nullptr, 0, PATIENCE_MS); };
    EXPECT_EQ(exchange(send, &message), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "A message was refused, or has come incomplete or broken.");
    EXPECT_EQ(message, nullptr);
    EXPECT_FALSE(nolvexIsOpen(receiver)) << "the rest of the file is no message";
    std::filesystem::remove(source);
}

TEST_F(CNetworkTest, receptionWithoutATimeLimit_waitsForTheMessage)
{
    NolvexMessage* message = nullptr;
    std::thread sending([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        EXPECT_EQ(nolvexSendText(sender, nullptr, PATIENCE_MS), NOLVEX_OK);
    });
    EXPECT_EQ(nolvexReceive(receiver, NOLVEX_NO_TIME_LIMIT, nullptr, nullptr, &message), NOLVEX_OK);
    sending.join();
    nolvexFreeMessage(message);
}

TEST_F(CNetworkTest, messageOfAnUnknownKind_endsTheConnection)
{
    using namespace Nolvex::Wx::Legacy;
    TcpClient peer(SocketAddress::localhost(nolvexListenerPort(listener)), 5);
    NolvexConnection* connection = nullptr;
    ASSERT_EQ(nolvexAccept(listener, 1, &connection), NOLVEX_OK);
    std::thread sending([&peer] {
        const std::array<std::byte, 3> bytes{};
        (void)peer.writeRawMemory(bytes, {}, DataCompression::None, static_cast<DataType>(7), 2000);
    });
    NolvexMessage* message = nullptr;
    EXPECT_EQ(nolvexReceive(connection, PATIENCE_MS, nullptr, nullptr, &message), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "A message was refused, or has come incomplete or broken.");
    EXPECT_FALSE(nolvexIsOpen(connection));
    sending.join();
    nolvexCloseConnection(connection);
}

TEST_F(CNetworkTest, whatCannotBeSent_isToldAndNothingIsSent)
{
    EXPECT_EQ(nolvexSendText(sender, "no XML", PATIENCE_MS), NOLVEX_FAILED);
    EXPECT_EQ(std::string(nolvexLastError()).find("The header is no XML: "), 0u);
    EXPECT_EQ(nolvexSendMemory(sender, "", 0, nullptr, PATIENCE_MS), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "A block of memory has 1 to 2,147,483,647 bytes.");
    NolvexMessage* message = nullptr;
    EXPECT_EQ(nolvexReceive(receiver, 100, nullptr, nullptr, &message), NOLVEX_TIMEOUT);
}

TEST_F(CNetworkTest, peerThatGoes_endsTheConnection)
{
    nolvexCloseConnection(sender);
    sender = nullptr;
    NolvexMessage* message = nullptr;
    EXPECT_EQ(nolvexReceive(receiver, PATIENCE_MS, nullptr, nullptr, &message), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "The connection has ended.");
    EXPECT_FALSE(nolvexIsOpen(receiver));
    EXPECT_EQ(nolvexSendText(receiver, nullptr, PATIENCE_MS), NOLVEX_FAILED);
}

TEST_F(CNetworkTest, errors_belongToTheirThread)
{
    EXPECT_EQ(nolvexSendText(sender, "no XML", PATIENCE_MS), NOLVEX_FAILED);
    std::thread([] { EXPECT_STREQ(nolvexLastError(), ""); }).join();
}

TEST(CNetworkWithoutPeerTest, connection_isRefusedWithASentence)
{
    NolvexListener* listener = nullptr;
    ASSERT_EQ(nolvexListen("127.0.0.1", 0, &listener), NOLVEX_OK);
    const std::uint16_t port = nolvexListenerPort(listener);
    NolvexListener* second = nullptr;
    EXPECT_EQ(nolvexListen("127.0.0.1", port, &second), NOLVEX_FAILED);
    EXPECT_EQ(nolvexLastError(), "The port " + std::to_string(port) + " cannot be listened on.");
    NolvexConnection* connection = nullptr;
    EXPECT_EQ(nolvexAccept(listener, 0, &connection), NOLVEX_TIMEOUT);
    nolvexCloseListener(listener);

    EXPECT_EQ(nolvexConnect("127.0.0.1", port, 5, &connection), NOLVEX_FAILED);
    EXPECT_EQ(nolvexLastError(), "There is no answer from 127.0.0.1, port " + std::to_string(port) + ".");
    EXPECT_EQ(connection, nullptr);
}

TEST(CNetworkWithoutPeerTest, nothing_canBeGivenBack)
{
    nolvexCloseListener(nullptr);
    nolvexCloseConnection(nullptr);
    nolvexFreeMessage(nullptr);
    nolvexFreePaths(nullptr);
    nolvexFreeText(nullptr);
    nolvexEndTaskbarProgress(nullptr);
}

TEST(CLifeTest, beforeTheStart_everythingIsRefusedWithASentence)
{
    nolvexShutdown();
    EXPECT_FALSE(nolvexIsStarted());
    EXPECT_EQ(nolvexRunEventLoop(), -1);
    EXPECT_EQ(nolvexProcessPendingEvents(), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "The library has not been started.");
    EXPECT_EQ(nolvexShowMessage(nullptr, "", "", NOLVEX_ICON_NONE, NOLVEX_BUTTONS_OK), NOLVEX_FAILED);
    char* path = nullptr;
    EXPECT_EQ(nolvexChooseFolder(nullptr, "", nullptr, &path), NOLVEX_FAILED);
    EXPECT_EQ(nolvexStartup(static_cast<NolvexApplicationType>(3)), NOLVEX_FAILED);
    EXPECT_STREQ(nolvexLastError(), "This type of application does not exist.");
}
