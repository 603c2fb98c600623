// SPDX-License-Identifier: MIT
// Sends texts and files to a receiver, each as a separate message, and waits for the answer to each message.
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "examples/transfer/ProgressBar.h"
#include "examples/transfer/TransferProgram.h"
#include "examples/transfer/platform/CommandLine.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

namespace {

constexpr wxLongLong_t MAX_SECONDS = 86'400;

// A compressed file is held in memory, and its size must fit into 32 bits of the header.
constexpr std::uint64_t MAX_COMPRESSIBLE_SIZE = std::uint64_t{1} << 30;

// The system generates some files while they are read, such as those in /proc. It reports a size of zero or
// of a memory page for them, so that only larger sizes are trusted.
constexpr std::uint64_t MAX_DOUBTED_SIZE = 65'536;
constexpr std::size_t MAX_MADE_UP_SIZE = std::size_t{64} << 20;

struct FileToSend
{
    Io::Path path;
    std::uint64_t size;
    // The content of the file, if the size that the system reports is wrong.
    std::vector<std::byte> content;
    bool isMadeUp;
};

std::vector<std::byte> contentOf(const Io::Path& path)
{
    std::vector<std::byte> content;
    std::array<std::byte, 65'536> piece;
    Io::FileInputStream file(path);
    while (const auto count = file.read(piece.data(), std::ssize(piece))) {
        content.insert(content.end(), piece.begin(), piece.begin() + count);
        if (content.size() > MAX_MADE_UP_SIZE)
            throw Exception("The file reports a size that it does not have, and is too long to be held in "
                            "memory.");
    }
    return content;
}

FileToSend lookedAt(const Io::Path& path)
{
    std::error_code failure;
    const auto status = std::filesystem::status(path.native(), failure);
    if (!std::filesystem::exists(status))
        throw Exception("It does not exist.");
    // Opening a pipe would wait for a writer, and a folder has no bytes.
    const Optional<std::uint64_t> size = Io::fileSize(path);
    if (!size)
        throw Exception("It is no regular file.");
    FileToSend file = {path, *size, {}, false};
    if (*size <= MAX_DOUBTED_SIZE) {
        file.content = contentOf(path);
        file.isMadeUp = file.content.size() != *size;
        file.size = file.content.size();
    }
    return file;
}

class Sender : public TransferProgram
{
protected:
    void describeArguments(wxCmdLineParser& parser) override
    {
        parser.SetLogo("Sends texts and files to transfer-receive.\n");
        parser.AddOption("t", "text", "send this text, before the files");
        parser.AddSwitch("c", "compress", "send the files compressed, if they are no longer than 1 GiB");
        parser.AddOption("w", "wait", "seconds to wait for the connection and for each answer (10)");
        parser.AddParam("HOST", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
        parser.AddParam("PORT", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
        parser.AddParam("FILE", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
    }

    int transfer(const wxCmdLineParser& arguments) override
    {
        long port = 0;
        wxLongLong_t seconds = 10;
        if (arguments.GetParamCount() < 2 || !arguments.GetParam(1).ToLong(&port) || port < 1 || port > 65535)
            return complain(L"A host and a port from 1 to 65535 are needed.");
        if (!readNumber(arguments, "wait", 1, MAX_SECONDS, seconds))
            return complain(L"--wait takes 1 to 86400 seconds.");
        m_answerTime = std::chrono::seconds(seconds);
        m_compresses = arguments.Found("compress");

        wxString text;
        const bool hasText = arguments.Found("text", &text);
        XmlString message;
        message.addChild(L"Text", Wx::toString(text));
        // XML cannot represent some characters, which would be replaced.
        if (message.getChild(L"Text") != Wx::toString(text))
            return complain(L"The text holds bytes that are no UTF-8, or control characters.");

        const String host = Wx::toString(arguments.GetParam(0));
        const SocketAddress address(host, static_cast<unsigned short>(port));
        if (!address.hasHost())
            return fail(L"The host \"" + host + L"\" is unknown.");
        TcpClient client(address, static_cast<unsigned>(seconds));
        if (!client.isOpen())
            return fail(L"Nobody answers at " + host + L", port " + Wx::toString(arguments.GetParam(1)) +
                        L".");
        if (hasText && !isReceived(client, message))
            return fail(L"The text was not received.");
        return sendFiles(client, address, arguments);
    }

private:
    // A file that was not received may leave the connection closed. Those behind it get another connection.
    int sendFiles(TcpClient& client, const SocketAddress& address, const wxCmdLineParser& arguments) const
    {
        int exitCode = DONE;
        bool hasGone = false;
        for (std::size_t i = 2; i < arguments.GetParamCount(); ++i) {
            const std::wstring name = arguments.GetParam(i).ToStdWstring();
            if (!client.isOpen() && !hasGone) {
                client = TcpClient(address, static_cast<unsigned>(m_answerTime.count() / 1000));
                // Each further attempt could take as long as this one.
                hasGone = !client.isOpen();
            }
            if (!sendFile(client, pathOfArgument(name)))
                exitCode = FAILED;
        }
        return exitCode;
    }

    // If a file cannot be sent, the program says why and goes on with the next file.
    bool sendFile(TcpClient& client, const Io::Path& path) const
    try {
        if (!client.isOpen())
            throw Exception("The connection ended before.");
        const FileToSend file = lookedAt(path);
        if (m_compresses && file.size > MAX_COMPRESSIBLE_SIZE)
            fail(L"The file " + path.nativeStr() + L" is too long to be compressed and is sent as it is.");
        XmlString header;
        header.addChild(L"Name", path.fileName());
        offer(client, header, file.size);
        const ProgressBar bar(0);
        if (writeFile(client, file, header) != SocketResult::Success || answerFrom(client) != L"received") {
            // The receiver may wait for the rest of the file, and must not take the next message for it.
            client.close();
            throw Exception("The file or the connection ended early, or the receiver could not store it.");
        }
        return true;

    } catch (const std::exception& failure) {
        fail(L"The file " + path.nativeStr() + L" was not received. " + String::fromUtf8(failure.what()));
        return false;
    }

    // Asks whether the receiver wants the file, so that an unwanted file is not sent. The offer also tells
    // the receiver to wait while the file is compressed.
    void offer(TcpClient& client, const XmlString& header, std::uint64_t size) const
    {
        XmlString message = header;
        message.addChild(L"Offer", std::to_wstring(size));
        const bool isSent = client.writeString(message, m_answerTime.count()) == SocketResult::Success;
        const String answer = isSent ? answerFrom(client) : String();
        if (answer.isEmpty()) {
            // An answer that comes late would be taken for the answer to the next message.
            client.close();
            throw Exception("The receiver does not answer.");
        }
        if (answer != L"welcome")
            throw Exception("The receiver refuses it: " + answer.toUtf8());
    }

    SocketResult writeFile(TcpClient& client, const FileToSend& file, const XmlString& header) const
    {
        // A file and raw memory of the type File look the same on the wire.
        if (file.isMadeUp)
            return client.writeRawMemory(file.content, header, DataCompression::None, DataType::File);
        const bool isCompressed = m_compresses && file.size <= MAX_COMPRESSIBLE_SIZE;
        return client.writeFile(file.path, header,
                                isCompressed ? DataCompression::Deflate : DataCompression::None,
                                DataType::File);
    }

    bool isReceived(TcpClient& client, const XmlString& message) const
    {
        return client.writeString(message, m_answerTime.count()) == SocketResult::Success &&
               answerFrom(client) == L"received";
    }

    // Returns an empty text if no answer comes in time. The library waits only a second for a header, hence
    // the loop.
    String answerFrom(TcpClient& client) const
    {
        const auto end = std::chrono::steady_clock::now() + m_answerTime;
        XmlString message;
        while (client.isOpen() && std::chrono::steady_clock::now() < end) {
            if (client.readString(message) == SocketResult::Success)
                return message.getChild(L"Answer").value_or(String());
        }
        return {};
    }

    std::chrono::milliseconds m_answerTime{};
    bool m_compresses = false;
};

} // namespace

int main(int argc, char** argv)
{
    return Sender().run(argc, argv);
}
