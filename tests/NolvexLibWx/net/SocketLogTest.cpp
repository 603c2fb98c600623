// SPDX-License-Identifier: MIT
// Tests which lines the sockets write to the log for developers.
#include "MessageSamples.h"

#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

namespace Nolvex::Wx::Legacy {
namespace {

using Tests::RawPeerPair;

// Reads the log while the object lives.
class LogReader
{
public:
    LogReader()
    {
        DebugLogger::setSink([this](const DebugLogger::Record& record) {
            const std::lock_guard lock(m_mutex);
            if (record.category == std::string_view("trace"))
                m_traces.append(record.sourceFile).append(" ").append(record.function).append("\n");
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

    std::string traces()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_traces, {});
    }

private:
    std::mutex m_mutex;
    std::string m_text;
    std::string m_traces;
};

TEST(SocketLogTest, log_isForDevelopersOnly)
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
                          "Nolvex::Wx::Legacy::TcpSocket::readData: Receiving data of size0\n"
                          "Nolvex::Wx::Legacy::TcpSocket::readData: Received invalid XML header (couldn't "
                          "read file size)\n");
}

TEST(SocketLogTest, log_tellsOfEachStep)
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
    EXPECT_NE(fileLog.find("Read piece, remaining0\n"), std::string::npos);
    EXPECT_NE(fileLog.find("Successfully read scene\n"), std::string::npos);
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Success);
    EXPECT_NE(log.text().find("Data successfully received\n"), std::string::npos);
    EXPECT_EQ(pair.socket.readData(received, context), SocketResult::Error);
    EXPECT_NE(log.text().find("Received less data than I should: 1/2\n"), std::string::npos);
}

TEST(SocketLogTest, writeRawMemory_isTracedEvenIfItSendsNothing)
{
    LogReader log;
    setDevelopmentEnviro(true);
    RawPeerPair pair;
    EXPECT_EQ(pair.socket.writeRawMemory(viewOf("abc"), {}, DataCompression::None, DataType::RawData),
              SocketResult::Success);
    EXPECT_EQ(log.traces(), "net/LegacySockets Nolvex::Wx::Legacy::TcpSocket::writeRawMemory\n");
    pair.socket.close();
    EXPECT_EQ(pair.socket.writeRawMemory(viewOf("abc"), {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
    EXPECT_EQ(log.traces(), "net/LegacySockets Nolvex::Wx::Legacy::TcpSocket::writeRawMemory\n");
    setDevelopmentEnviro(false);
    EXPECT_EQ(pair.socket.writeRawMemory(viewOf("abc"), {}, DataCompression::None, DataType::RawData),
              SocketResult::Error);
    EXPECT_EQ(log.traces(), "");
}

TEST(SocketLogTest, log_tellsOfAPieceNotWritten)
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
