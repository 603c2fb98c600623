// SPDX-License-Identifier: MIT
// Receives what senders send, one connection at a time: texts are printed, files stored in a folder.
#include "NolvexLib/StopException.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/net/TcpListener.h"
#include "examples/transfer/ProgressBar.h"
#include "examples/transfer/TransferProgram.h"

#include <wx/utils.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

namespace {

std::int64_t fileSizeIn(const XmlString& header)
{
    long long size = 0;
    const Optional<String> text = header.getChild(L"FileSize");
    return text && Wx::toWxString(*text).ToLongLong(&size) ? size : 0;
}

// Where files go. The sender's name for a file is only a wish, and nothing that exists is overwritten.
class Folder : public ReadDataContext
{
public:
    explicit Folder(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    Io::Path getFilePath(const XmlString& header) const override
    {
        m_bodyBegan = true;
        const std::filesystem::path name = properName(header.getChild(L"Name").value_or(String()));
        std::error_code unknown;
        m_path = m_folder / name;
        for (int i = 2; std::filesystem::exists(m_path, unknown); ++i)
            m_path = m_folder / (name.stem().native() + suffix(i) + name.extension().native());
        return m_path;
    }

    void onReceiveStart(const XmlString& header) const override
    {
        m_bodyBegan = true;
        m_bar = std::make_unique<ProgressBar>(fileSizeIn(header), [path = m_path] {
            std::error_code missing;
            const std::uintmax_t size = std::filesystem::file_size(path, missing);
            return missing ? 0 : static_cast<std::int64_t>(size);
        });
    }

    void onReceiveEnd(const XmlString& /*header*/) const override { m_bar.reset(); }

    /// True when a body began since this was asked last.
    bool takeBodyBegan() const { return std::exchange(m_bodyBegan, false); }

private:
    static std::filesystem::path::string_type suffix(int number)
    {
        return std::filesystem::path(std::string("-").append(std::to_string(number))).native();
    }

    // With something in front of it no name is hidden, a device or a way to another folder.
    static std::filesystem::path properName(const String& wish)
    {
        // Systems count up to 255, some of them bytes, of which a character has up to four.
        constexpr std::size_t LONGEST = 50;
        std::wstring name = L"received-";
        for (std::size_t i = 0; i < std::min(wish.length(), LONGEST); ++i) {
            const bool isOrdinary =
                wish[i] >= L' ' && std::wstring_view(L"/\\:*?\"<>|").find(wish[i]) == std::wstring_view::npos;
            name += isOrdinary ? wish[i] : L'_';
        }
        return Io::Path(name).native();
    }

    std::filesystem::path m_folder;
    // Of the file that is coming: the hooks may not change what they are asked of.
    mutable std::filesystem::path m_path;
    mutable std::unique_ptr<ProgressBar> m_bar;
    mutable bool m_bodyBegan = false;
};

class Receiver : public TransferProgram
{
protected:
    void describeArguments(wxCmdLineParser& parser) override
    {
        parser.SetLogo("Receives what nolvex-send sends: prints texts, stores files.\n");
        parser.AddOption("a", "address", "address of this computer to listen on (127.0.0.1)");
        parser.AddOption("p", "port", "port to listen on (one that is free)", wxCMD_LINE_VAL_NUMBER);
        parser.AddOption("f", "folder", "where files are stored (.)");
        parser.AddOption("n", "connections", "end after so many connections (0: never)",
                         wxCMD_LINE_VAL_NUMBER);
    }

    int transfer(const wxCmdLineParser& arguments) override
    {
        wxString address = "127.0.0.1";
        wxString folder = ".";
        long port = 0;
        long connections = 0;
        arguments.Found("address", &address);
        arguments.Found("folder", &folder);
        if (!readNumber(arguments, "port", 0, 65535, port))
            return complain("--port takes 0 to 65535.");
        if (!readNumber(arguments, "connections", 0, 1'000'000, connections))
            return complain("--connections takes 0 to 1000000.");
        // A name that cannot be resolved would stand for all addresses of this computer on some systems.
        if (!SocketAddress::isValid(Wx::toString(address)))
            return complain("--address takes four numbers and dots.");
        const Io::Path target(Wx::toString(folder));
        std::error_code missing;
        if (!std::filesystem::is_directory(target.native(), missing))
            return fail("There is no folder " + folder + ".");

        TcpListener listener(SocketAddress(Wx::toString(address), static_cast<unsigned short>(port)), 3600);
        const Optional<SocketAddress> local = listener.getLocalAddress();
        if (!local)
            return fail("It is not possible to listen there.");
        std::printf("listening on %s port %u\n", local->toString().toUtf8().c_str(),
                    unsigned{local->getPort()});
        std::fflush(stdout);
        return serve(listener, Folder(target.native()), connections);
    }

private:
    // One silent second after the other until a sender is given up.
    static constexpr int MOST_SILENT_SECONDS = 60;

    static int serve(TcpListener& listener, const Folder& folder, long connections)
    {
        for (long served = 0; connections == 0 || served < connections;) {
            TcpSocket connection = listener.acceptConnection(true);
            if (connection.isOpen()) {
                receiveAll(connection, folder);
                ++served;
            }
            connection.close();
            // Frees what the toolkit keeps of closed sockets; and a system that has no more of them gets a
            // pause.
            wxTheApp->ProcessIdle();
            wxMilliSleep(10);
        }
        return DONE;
    }

    static void receiveAll(TcpSocket& connection, const Folder& folder)
    {
        try {
            for (int silent = 0; connection.isOpen() && silent < MOST_SILENT_SECONDS;)
                silent = receiveOne(connection, folder) ? 0 : silent + 1;
        } catch (const StopException&) {
            fail("The sender speaks another protocol.");
        } catch (const std::exception& failure) {
            fail(wxString::FromUTF8(failure.what()));
        }
    }

    // False when nothing came.
    static bool receiveOne(TcpSocket& connection, const Folder& folder)
    {
        ReceivedData message;
        const SocketResult result = connection.readData(message, folder);
        const bool bodyBegan = folder.takeBodyBegan();
        if (result != SocketResult::Success) {
            // What is left of a body would be taken for the next message.
            if (bodyBegan) {
                fail("A message was not received.");
                connection.close();
            }
            return false;
        }
        print(message);
        XmlString answer;
        answer.addChild(L"Answer", L"received");
        if (connection.writeString(answer) != SocketResult::Success)
            connection.close();
        return true;
    }

    static void print(const ReceivedData& message)
    {
        if (const auto* file = message.tryGet<ReceivedFile>())
            std::printf("file %s\n", printable(file->path.nativeStr()).c_str());
        else if (const auto* text = message.tryGet<XmlString>())
            std::printf("text %s\n", printable(text->getChild(L"Text").value_or(String())).c_str());
        else
            std::printf("memory\n");
        std::fflush(stdout);
    }

    // Strangers are not to move the cursor.
    static std::string printable(const String& text)
    {
        std::wstring result;
        for (std::size_t i = 0; i < text.length(); ++i) {
            const bool isControl = text[i] < L' ' || (text[i] >= 0x7F && text[i] < 0xA0);
            result += isControl ? L'?' : text[i];
        }
        return String(result).toUtf8();
    }
};

} // namespace

wxIMPLEMENT_APP_CONSOLE(Receiver);
