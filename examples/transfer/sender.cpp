// SPDX-License-Identifier: MIT
// Sends texts and files to a receiver, each as a message of its own, and waits for the answer to each.
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "examples/transfer/ProgressBar.h"
#include "examples/transfer/TransferProgram.h"

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

namespace {

constexpr long MOST_SECONDS = 86'400;

class Sender : public TransferProgram
{
protected:
    void describeArguments(wxCmdLineParser& parser) override
    {
        parser.SetLogo("Sends texts and files to nolvex-receive.\n");
        parser.AddOption("t", "text", "send this text, before the files");
        parser.AddSwitch("c", "compress", "send the files compressed");
        parser.AddOption("w", "wait", "seconds to wait for the connection and for each answer (10)",
                         wxCMD_LINE_VAL_NUMBER);
        parser.AddParam("HOST", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
        parser.AddParam("PORT", wxCMD_LINE_VAL_NUMBER, wxCMD_LINE_PARAM_OPTIONAL);
        parser.AddParam("FILE", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
    }

    int transfer(const wxCmdLineParser& arguments) override
    {
        long port = 0;
        long seconds = 10;
        if (arguments.GetParamCount() < 2 || !arguments.GetParam(1).ToLong(&port) || port < 1 || port > 65535)
            return complain("A host and a port from 1 to 65535 are needed.");
        if (!readNumber(arguments, "wait", 1, MOST_SECONDS, seconds))
            return complain("--wait takes 1 to 86400 seconds.");

        const SocketAddress address(Wx::toString(arguments.GetParam(0)), static_cast<unsigned short>(port));
        TcpClient client(address, static_cast<unsigned>(seconds));
        if (!client.isOpen())
            return fail("Nobody answers at " + arguments.GetParam(0) + ", port " + arguments.GetParam(1) +
                        ".");

        wxString text;
        if (arguments.Found("text", &text) && !sendText(client, text, seconds))
            return fail("The text was not received.");
        for (std::size_t i = 2; i < arguments.GetParamCount(); ++i) {
            if (!sendFile(client, arguments.GetParam(i), arguments.Found("compress"), seconds))
                return fail("The file " + arguments.GetParam(i) + " was not received.");
        }
        return DONE;
    }

private:
    static bool sendText(TcpClient& client, const wxString& text, long seconds)
    {
        XmlString message;
        message.addChild(L"Text", Wx::toString(text));
        return client.writeString(message, seconds * 1000) == SocketResult::Success &&
               isAccepted(client, seconds);
    }

    static bool sendFile(TcpClient& client, const wxString& name, bool compressed, long seconds)
    {
        const Io::Path path(Wx::toString(name));
        XmlString header;
        header.addChild(L"Name", path.fileName());
        const ProgressBar bar(0);
        const SocketResult result = client.writeFile(
            path, header, compressed ? DataCompression::Deflate : DataCompression::None, DataType::File);
        return result == SocketResult::Success && isAccepted(client, seconds);
    }

    // The receiver answers each message by a text. A wait for a header lasts a second.
    static bool isAccepted(TcpClient& client, long seconds)
    {
        XmlString answer;
        for (long i = 0; i < seconds && client.isOpen(); ++i) {
            if (client.readString(answer) == SocketResult::Success)
                return answer.getChild(L"Answer") == String(L"received");
        }
        return false;
    }
};

} // namespace

wxIMPLEMENT_APP_CONSOLE(Sender);
