// SPDX-License-Identifier: MIT
// One end of an exchange over the wire protocol, which uses the library. The command line and the output are
// those of nolvex_peer.py, the other end, which was written from the description of the protocol alone. Names
// and texts in the arguments are ASCII.
#include "NolvexLib/StopException.h"
#include "NolvexLib/Timer.h"
#include "NolvexLibWx/net/LegacySockets.h"
#include "peer/PeerFiles.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace Nolvex;
using namespace Nolvex::Tests;
using Wx::Legacy::SocketResult;

namespace Legacy = Wx::Legacy;

constexpr int TIMEOUT_SECONDS = 30;
constexpr std::int64_t TIMEOUT_MS = TIMEOUT_SECONDS * std::int64_t(1000);

/// The command of the peer, from its arguments.
struct Command
{
    bool listens = false;
    std::string host;
    unsigned short port = 0;
    std::vector<std::string> values;
};

void check(SocketResult result, const std::string& action)
{
    if (result != SocketResult::Success)
        throw Refusal(action + (result == SocketResult::Timeout ? " timed out" : " failed"));
}

void say(const std::string& line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

void sayPort(unsigned short port)
{
    say("port " + std::to_string(port));
}

/// An argument of the form "kind:content,tree", whose last parts may be missing.
struct Item
{
    explicit Item(const std::string& text)
    {
        const std::size_t colon = text.find(':');
        const std::size_t comma = text.find(',');
        kind = text.substr(0, colon);
        if (colon != std::string::npos)
            content = text.substr(colon + 1, comma - colon - 1);
        if (comma != std::string::npos)
            tree = treeIn(text.substr(comma + 1));
    }

    std::string kind;
    std::string content;
    XmlString tree;
};

// --- plain strings

struct Destruction
{
    void operator()(wxSocketBase* socket) const { socket->Destroy(); }
};

using ToolkitSocket = std::unique_ptr<wxSocketBase, Destruction>;

constexpr wxSocketFlags TOOLKIT_FLAGS = wxSOCKET_WAITALL | wxSOCKET_BLOCK;

ToolkitSocket acceptedSocket(const wxIPV4address& address)
{
    auto* const server = new wxSocketServer(address, TOOLKIT_FLAGS);
    const ToolkitSocket owner(server);
    server->SetTimeout(TIMEOUT_SECONDS);
    wxIPV4address local;
    if (!server->IsOk() || !server->GetLocal(local))
        throw Refusal("listening failed");
    sayPort(local.Service());
    return ToolkitSocket(server->Accept(true));
}

ToolkitSocket connectedSocket(const wxIPV4address& address)
{
    auto* const client = new wxSocketClient(TOOLKIT_FLAGS);
    ToolkitSocket owner(client);
    client->SetTimeout(TIMEOUT_SECONDS);
    if (!client->Connect(address, true))
        owner.reset();
    return owner;
}

ToolkitSocket toolkitSocket(const Command& command)
{
    wxIPV4address address;
    address.Hostname(wxString::FromAscii(command.host.c_str()));
    address.Service(command.port);
    ToolkitSocket socket = command.listens ? acceptedSocket(address) : connectedSocket(address);
    if (socket == nullptr)
        throw Refusal("there is no connection");
    return socket;
}

void sendStrings(const Command& command)
{
    const ToolkitSocket socket = toolkitSocket(command);
    for (const std::string& value : command.values) {
        const String text = String::fromUtf8(value.starts_with('@') ? textIn(value.substr(1)) : value);
        check(Legacy::WxSocket::writeString(socket.get(), text, TIMEOUT_SECONDS), "sending a string");
    }
    // The receiver closes the connection when it has received all items.
    String nothing;
    if (Legacy::WxSocket::readString(socket.get(), nothing, TIMEOUT_SECONDS) == SocketResult::Success)
        throw Refusal("an answer was not expected");
}

void receiveStrings(const Command& command)
{
    const ToolkitSocket socket = toolkitSocket(command);
    for (int left = std::stoi(command.values.at(0)); left > 0; --left) {
        String text;
        check(Legacy::WxSocket::readString(socket.get(), text, TIMEOUT_SECONDS), "receiving a string");
        say(escaped(text));
    }
}

// --- messages

Legacy::SocketAddress addressOf(const Command& command)
{
    return {String::fromUtf8(command.host), command.port};
}

Legacy::TcpSocket connectionOf(const Command& command)
{
    if (!command.listens)
        return Legacy::TcpClient(addressOf(command), TIMEOUT_SECONDS);
    Legacy::TcpListener listener(addressOf(command), TIMEOUT_SECONDS);
    const Optional<Legacy::SocketAddress> local = listener.getLocalAddress();
    if (!local)
        throw Refusal("listening failed");
    sayPort(local->getPort());
    return listener.acceptConnection(true);
}

SocketResult send(Legacy::TcpSocket& socket, const Item& item)
{
    using Legacy::DataCompression;
    if (item.kind == "xml")
        return socket.writeString(treeIn(item.content));
    if (item.kind == "raw")
        return socket.writeRawMemory(contentOf(item.content), item.tree, DataCompression::None,
                                     Legacy::DataType::RawData);
    const bool isCompressed = item.kind == "compressed";
    if (!isCompressed && item.kind != "file")
        throw Refusal(item.kind + " is no kind of message");
    return socket.writeFile(pathOf(item.content), item.tree,
                            isCompressed ? DataCompression::Deflate : DataCompression::None,
                            Legacy::DataType::File);
}

void sendMessages(const Command& command)
{
    const std::vector<Item> items(command.values.begin(), command.values.end());
    Legacy::TcpSocket socket = connectionOf(command);
    for (const Item& item : items)
        check(send(socket, item), "sending a message");
    // The receiver closes the connection when it has received all items.
    const Timer timer(1000);
    XmlString nothing;
    while (socket.isOpen() && timer.getElapsed() < TIMEOUT_MS)
        if (socket.readString(nothing) == SocketResult::Success)
            throw Refusal("an answer was not expected");
}

/// Stores a file under the name in the command.
class Target : public Legacy::ReadDataContext
{
public:
    explicit Target(Io::Path path) : m_path(std::move(path)) {}

    Io::Path getFilePath(const XmlString& /*header*/) const override { return m_path; }

private:
    Io::Path m_path;
};

void report(const Legacy::ReceivedData& data, const std::string& folder, const std::string& name)
{
    constexpr std::array KINDS = {"xml", "file", "raw"};
    const auto* const raw = data.tryGet<Legacy::ReceivedRawData>();
    const auto* const file = data.tryGet<Legacy::ReceivedFile>();
    const XmlString& tree = raw != nullptr    ? raw->header
                            : file != nullptr ? file->header
                                              : data.get<XmlString>();
    say(name + ": " + KINDS.at(data.index()));
    say("  " + escaped(tree.toString()));
    if (raw != nullptr)
        store(folder, name, raw->data);
}

void receiveMessages(const Command& command)
{
    const std::string& folder = command.values.at(0);
    const int count = std::stoi(command.values.at(1));
    Legacy::TcpSocket socket = connectionOf(command);
    for (int number = 1; number <= count; ++number) {
        const std::string name = std::to_string(number);
        Legacy::ReceivedData data;
        check(socket.readData(data, Target(pathOf(folder) / pathOf(name))), "receiving a message");
        report(data, folder, name);
    }
}

// --- datagrams

void sendDatagrams(const Command& command)
{
    const Legacy::UdpSocket socket(addressOf(command), Legacy::UdpSocket::ConstructFlag::NoBind);
    for (const std::string& value : command.values) {
        const Item item(value);
        check(item.kind == "xml" ? socket.writeXmlString(treeIn(item.content))
                                 : socket.writeByteData(contentOf(item.content)),
              "sending a datagram");
    }
}

/// Returns a port that was free a moment ago, because the library's socket does not report the port that the
/// system chose.
unsigned short freePort()
{
    wxIPV4address address;
    address.AnyAddress();
    address.Service(0);
    auto* const socket = new wxDatagramSocket(address, wxSOCKET_BLOCK);
    const ToolkitSocket owner(socket);
    if (!socket->IsOk() || !socket->GetLocal(address))
        throw Refusal("the system gives no port");
    return address.Service();
}

std::unique_ptr<Legacy::UdpSocket> boundSocket(Command command)
{
    for (int attempt = 0; attempt < 10; ++attempt) {
        command.port = freePort();
        auto socket = std::make_unique<Legacy::UdpSocket>(addressOf(command));
        if (socket->isOpen()) {
            sayPort(command.port);
            return socket;
        }
    }
    throw Refusal("there is no free port");
}

/// A read does not wait, so that it is repeated until a datagram has arrived.
void repeatUntilThere(const std::function<SocketResult()>& read)
{
    const Timer timer(1000);
    while (read() != SocketResult::Success) {
        if (timer.getElapsed() > TIMEOUT_MS)
            throw Refusal("no datagram arrives");
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void receiveDatagram(Legacy::UdpSocket& socket, const std::string& kind, const std::string& folder,
                     const std::string& name)
{
    Legacy::SocketAddress sender;
    if (kind == "xml") {
        XmlString tree;
        repeatUntilThere([&] { return socket.readXmlString(tree, sender); });
        say(name + ": xml");
        say("  " + escaped(tree.toString()));
        return;
    }
    std::array<std::byte, Legacy::MAX_DATAGRAM_SIZE> buffer{};
    std::uint64_t count = 0;
    repeatUntilThere([&] { return socket.readByteData(buffer, sender, count); });
    say(name + ": bytes");
    store(folder, name, ArrayView<const std::byte>(buffer).first(static_cast<std::size_t>(count)));
}

void receiveDatagrams(const Command& command)
{
    const auto socket = boundSocket(command);
    for (std::size_t number = 1; number < command.values.size(); ++number)
        receiveDatagram(*socket, command.values[number], command.values[0], std::to_string(number));
}

// --- the program

using Action = void (*)(const Command&);

const std::map<std::string_view, Action> ACTIONS = {
    {"send-strings", sendStrings},     {"receive-strings", receiveStrings},
    {"send-messages", sendMessages},   {"receive-messages", receiveMessages},
    {"send-datagrams", sendDatagrams}, {"receive-datagrams", receiveDatagrams},
};

void act(std::vector<std::string> arguments)
{
    const Action action = ACTIONS.at(arguments.at(0));
    Command command;
    command.listens = arguments.at(1) == "--listen";
    if (command.listens)
        arguments.erase(arguments.begin() + 1);
    command.host = arguments.at(1);
    command.port = static_cast<unsigned short>(std::stoi(arguments.at(2)));
    command.values.assign(arguments.begin() + 3, arguments.end());
    action(command);
}

int run(const std::vector<std::string>& arguments)
{
    try {
        act(arguments);
        return 0;
    } catch (const std::exception& failure) {
        say(std::string("refused: ") + failure.what());
    } catch (const StopException& failure) {
        say("refused: stopped in " + failure.file());
    }
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    wxLog::EnableLogging(false);
    wxAppConsole::SetInstance(new wxAppConsole);
    if (!wxInitialize() || !wxSocketBase::Initialize()) {
        std::fputs("The toolkit's sockets could not be initialised.\n", stderr);
        return 1;
    }
    const int result = run({argv + 1, argv + argc});
    wxSocketBase::Shutdown();
    wxUninitialize();
    return result;
}
