// SPDX-License-Identifier: MIT
// Receives messages from senders: prints the texts and stores the files in a folder.
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/net/TcpListener.h"
#include "examples/transfer/IncomingFolder.h"
#include "examples/transfer/Interruption.h"
#include "examples/transfer/Ledger.h"
#include "examples/transfer/Reception.h"
#include "examples/transfer/TransferProgram.h"
#include "examples/transfer/platform/CommandLine.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <list>
#include <system_error>
#include <thread>
#include <utility>

using namespace Nolvex;
using namespace Nolvex::Wx::Legacy;

namespace {

constexpr wxLongLong_t MAX_CONNECTIONS = 1'000'000;

// The limit is below the number of descriptors that wxWidgets can wait for.
constexpr wxLongLong_t MAX_CLIENTS = 500;

// The program waits this long for a connection before it checks whether it was interrupted.
constexpr unsigned MAX_WAIT_SECONDS = 1;

constexpr std::chrono::milliseconds POLL_PERIOD(20);

class Receiver : public TransferProgram
{
protected:
    void describeArguments(wxCmdLineParser& parser) override
    {
        parser.SetLogo("Receives what transfer-send sends: prints texts, stores files.\n");
        parser.AddOption("a", "address", "address of this computer to listen on (127.0.0.1)");
        parser.AddOption("p", "port", "port to listen on (one that is free)");
        parser.AddOption("f", "folder", "where files are stored (.)");
        parser.AddOption("n", "connections", "end after so many connections (0: never)");
        parser.AddOption("c", "clients", "serve so many connections at once (16); others wait");
        parser.AddOption("m", "max-size", "refuse files of more bytes");
    }

    int transfer(const wxCmdLineParser& arguments) override
    {
        wxString address = "127.0.0.1";
        wxString folder = ".";
        wxLongLong_t port = 0;
        wxLongLong_t maxSize = std::numeric_limits<wxLongLong_t>::max();
        arguments.Found("address", &address);
        arguments.Found("folder", &folder);
        if (!readNumber(arguments, "port", 0, 65535, port))
            return complain(L"--port takes 0 to 65535.");
        if (!readNumber(arguments, "connections", 0, MAX_CONNECTIONS, m_maxConnections))
            return complain(L"--connections takes 0 to 1000000.");
        if (!readNumber(arguments, "clients", 1, MAX_CLIENTS, m_maxClients))
            return complain(L"--clients takes 1 to 500.");
        if (!readNumber(arguments, "max-size", 0, maxSize, maxSize))
            return complain(L"--max-size takes a number of bytes.");
        // On some systems a name that cannot be resolved would stand for all addresses of this computer.
        if (!SocketAddress::isValid(Wx::toString(address)))
            return complain(L"--address takes four numbers and dots.");
        const Io::Path target = pathOfArgument(folder.ToStdWstring());
        std::error_code missing;
        if (!std::filesystem::is_directory(target.native(), missing))
            return fail(L"There is no folder " + target.nativeStr() + L".");
        IncomingFolder incoming(target.native(), maxSize);
        return listen(SocketAddress(Wx::toString(address), static_cast<unsigned short>(port)), incoming);
    }

private:
    int listen(const SocketAddress& address, IncomingFolder& folder)
    {
        TcpListener listener(address, MAX_WAIT_SECONDS);
        const Optional<SocketAddress> local = listener.getLocalAddress();
        if (!local)
            return fail(L"It is not possible to listen there.");
        Interruption::watch();
        std::printf("listening on %s port %u\n", local->toString().toUtf8().c_str(),
                    unsigned{local->getPort()});
        std::fflush(stdout);

        Ledger ledger;
        serve(listener, folder, ledger);
        ledger.printSummary();
        return ledger.hasRefused() ? FAILED : DONE;
    }

    // Runs until enough connections were served or the program is interrupted. Interrupting breaks off the
    // transfers.
    void serve(TcpListener& listener, IncomingFolder& folder, Ledger& ledger) const
    {
        std::list<Reception> receptions;
        wxLongLong_t accepted = 0;
        while (!Interruption::isRequested()) {
            receptions.remove_if([](const Reception& reception) { return reception.hasEnded(); });
            const bool isEnough = m_maxConnections != 0 && accepted >= m_maxConnections;
            if (isEnough && receptions.empty())
                return;
            const bool isFull = receptions.size() >= static_cast<std::size_t>(m_maxClients);
            if (isEnough || isFull || !accept(listener, folder, ledger, receptions))
                std::this_thread::sleep_for(POLL_PERIOD);
            else
                ++accepted;
        }
        // All of them, before the list waits for each.
        for (Reception& reception : receptions)
            reception.beginEnd();
    }

    // Returns false if no connection came or the system has no more sockets or threads.
    static bool accept(TcpListener& listener, IncomingFolder& folder, Ledger& ledger,
                       std::list<Reception>& receptions)
    try {
        TcpSocket connection = listener.acceptConnection(true);
        if (!connection.isOpen())
            return false;
        receptions.emplace_back(std::move(connection), folder, ledger);
        return true;

    } catch (const std::system_error& failure) {
        ledger.enterRefused(String::fromUtf8(failure.what()));
        return false;
    }

    wxLongLong_t m_maxConnections = 0;
    wxLongLong_t m_maxClients = 16;
};

} // namespace

int main(int argc, char** argv)
{
    const int exitCode = Receiver().run(argc, argv);
    Interruption::endProgram();
    return exitCode;
}
