// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/net/LegacySockets.h"
#include "support/PairedRatio.h"
#include "support/RawPair.h"

#include <wx/socket.h>

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace Nolvex::Benchmarks {

namespace {

using namespace Wx::Legacy;

constexpr std::size_t BODY = std::size_t{64} << 20;
constexpr int HEADERS = 100;
constexpr int ROUND_TRIPS = 500;

// Starts the library and stops it when the work no longer needs it.
std::shared_ptr<void> startedLibrary()
{
    LibWx::startup(LibWx::ApplicationType::APPLICATION);
    return {nullptr, [](void*) { LibWx::shutdown(); }};
}

// A connection between two sockets of the library.
struct Pair
{
    std::shared_ptr<void> library = startedLibrary();
    TcpListener listener{SocketAddress::localhost(0), 5};
    TcpClient client{*listener.getLocalAddress(), 5};
    TcpSocket server = listener.acceptConnection(true);
};

// A connection between a socket of wxWidgets and a socket of the system.
struct HalfRawPair
{
    std::shared_ptr<void> library = startedLibrary();
    int raw = -1;
    wxSocketClient* socket = new wxSocketClient(wxSOCKET_WAITALL | wxSOCKET_BLOCK);

    HalfRawPair()
    {
        TcpListener listener(SocketAddress::localhost(0), 5);
        const unsigned short port = listener.getLocalAddress()->getPort();
        listener.close();
        const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        constexpr int ON = 1;
        ::setsockopt(server, SOL_SOCKET, SO_REUSEADDR, &ON, sizeof(ON));
        check(::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0 &&
              ::listen(server, 1) == 0);
        wxIPV4address there;
        there.LocalHost();
        there.Service(port);
        check(socket->Connect(there, true));
        raw = ::accept(server, nullptr, nullptr);
        ::close(server);
    }

    ~HalfRawPair()
    {
        socket->Destroy();
        ::close(raw);
    }

    HalfRawPair(const HalfRawPair&) = delete;
    HalfRawPair& operator=(const HalfRawPair&) = delete;
};

std::string headersOfOneKilobyte()
{
    std::string header = "<root><DataType>0</DataType><Text>";
    header.append(1024 - header.size() - 14 + 1, 'x').append("</Text></root>").push_back('\0');
    std::string all;
    for (int i = 0; i < HEADERS; ++i)
        all += header;
    return all;
}

// wxWidgets has no other way for a caller who must not read past the end of a text: each call reads one byte.
void readByteByByte(wxSocketBase& socket)
{
    for (int i = 0; i < HEADERS; ++i) {
        std::string text;
        char byte = 1;
        while (byte != '\0') {
            socket.Read(&byte, 1);
            check(socket.LastReadCount() == 1);
            text.push_back(byte);
        }
        benchmark::DoNotOptimize(text.data());
    }
}

void readByLibrary(wxSocketBase& socket)
{
    for (int i = 0; i < HEADERS; ++i) {
        String text;
        check(Wx::Legacy::WxSocket::readString(&socket, text, 5) == SocketResult::Success);
        benchmark::DoNotOptimize(text.length());
    }
}

template<void (*READ)(wxSocketBase&)>
Work readHeaders(const std::shared_ptr<HalfRawPair>& pair, const std::shared_ptr<std::string>& headers)
{
    return [pair, headers] {
        std::thread sender([&] { sendAll(pair->raw, headers->data(), headers->size()); });
        READ(*pair->socket);
        sender.join();
    };
}

Contest headerReading()
{
    const auto pair = std::make_shared<HalfRawPair>();
    const auto headers = std::make_shared<std::string>(headersOfOneKilobyte());
    Contest contest;
    contest.peer = readHeaders<readByteByByte>(pair, headers);
    contest.ours = readHeaders<readByLibrary>(pair, headers);
    return contest;
}

// Keeps this thread, and the threads that it starts, on one processor core.
class OneCore
{
public:
    OneCore()
    {
        ::sched_getaffinity(0, sizeof(m_before), &m_before);
        cpu_set_t one;
        CPU_ZERO(&one);
        for (std::size_t i = 0; i < CPU_SETSIZE && CPU_COUNT(&one) == 0; ++i) {
            if (CPU_ISSET(i, &m_before))
                CPU_SET(i, &one);
        }
        ::sched_setaffinity(0, sizeof(one), &one);
    }

    ~OneCore() { ::sched_setaffinity(0, sizeof(m_before), &m_before); }

    OneCore(const OneCore&) = delete;
    OneCore& operator=(const OneCore&) = delete;

private:
    cpu_set_t m_before = {};
};

struct Free
{
    void operator()(char* block) const { std::free(block); }
};

// Moves the body into new memory each time, because the library, too, hands over new memory each time.
void moveRaw(const RawPair& pair, const std::vector<std::byte>& body)
{
    const OneCore oneCore;
    std::thread sender(
        [&] { sendAll(pair.first(), reinterpret_cast<const char*>(body.data()), body.size()); });
    const std::unique_ptr<char, Free> received(static_cast<char*>(std::malloc(BODY)));
    receiveAll(pair.second(), received.get(), BODY);
    sender.join();
}

void moveByLibrary(Pair& pair, const std::vector<std::byte>& body)
{
    const OneCore oneCore;
    std::thread sender([&] {
        check(pair.client.writeRawMemory(body, XmlString(), DataCompression::None, DataType::RawData) ==
              SocketResult::Success);
    });
    ReceivedData received;
    check(pair.server.readData(received, ReadDataContext()) == SocketResult::Success);
    sender.join();
}

Contest bodies()
{
    const auto raw = std::make_shared<RawPair>();
    const auto pair = std::make_shared<Pair>();
    const auto body = std::make_shared<std::vector<std::byte>>(BODY, std::byte{7});
    return {[raw, body] { moveRaw(*raw, *body); }, [pair, body] { moveByLibrary(*pair, *body); }};
}

// Sends the bytes of a text message with one child in both directions.
void exchangeRaw(const RawPair& pair, const std::string& message)
{
    std::thread answerer([&] {
        std::string request(message.size(), '\0');
        for (int i = 0; i < ROUND_TRIPS; ++i) {
            receiveAll(pair.second(), request.data(), request.size());
            sendAll(pair.second(), message.data(), message.size());
        }
    });
    std::string answer(message.size(), '\0');
    for (int i = 0; i < ROUND_TRIPS; ++i) {
        sendAll(pair.first(), message.data(), message.size());
        receiveAll(pair.first(), answer.data(), answer.size());
    }
    answerer.join();
}

void exchangeByLibrary(Pair& pair, const XmlString& message)
{
    std::thread answerer([&] {
        XmlString request;
        for (int i = 0; i < ROUND_TRIPS; ++i)
            check(pair.server.readString(request) == SocketResult::Success &&
                  pair.server.writeString(message, {}) == SocketResult::Success);
    });
    XmlString answer;
    for (int i = 0; i < ROUND_TRIPS; ++i)
        check(pair.client.writeString(message, {}) == SocketResult::Success &&
              pair.client.readString(answer) == SocketResult::Success);
    answerer.join();
}

Contest requests()
{
    const auto raw = std::make_shared<RawPair>();
    const auto pair = std::make_shared<Pair>();
    XmlString message;
    message.addChild(L"Command", L"status");
    const std::string bytes =
        "<root><DataType>0</DataType><Command>status</Command></root>" + std::string(1, '\0');
    return {[raw, bytes] { exchangeRaw(*raw, bytes); },
            [pair, message] { exchangeByLibrary(*pair, message); }};
}

// While the object lives, as many threads as there are processor cores do other work.
class OtherWork
{
public:
    OtherWork()
    {
        for (unsigned i = 0; i < std::max(std::thread::hardware_concurrency(), 1U); ++i) {
            m_threads.emplace_back([this] {
                while (!m_over)
                    benchmark::ClobberMemory();
            });
        }
    }

    ~OtherWork()
    {
        m_over = true;
        for (std::thread& thread : m_threads)
            thread.join();
    }

    OtherWork(const OtherWork&) = delete;
    OtherWork& operator=(const OtherWork&) = delete;

private:
    std::atomic<bool> m_over = false;
    std::vector<std::thread> m_threads;
};

Contest requestsBesideWork()
{
    Contest contest = requests();
    const auto work = std::make_shared<OtherWork>();
    const auto beside = [work](const Work& exchange) { return [work, exchange] { exchange(); }; };
    return {beside(contest.peer), beside(contest.ours)};
}

const Figure HEADER_READING("socket_header_reading", 55.0, headerReading);
const Figure BODIES("socket_raw_body", 0.85, bodies);
const Figure REQUESTS("socket_request_and_answer", 0.90, requests);
const Figure REQUESTS_BESIDE_WORK("socket_request_and_answer_beside_work", 0.90, requestsBesideWork);

} // namespace

} // namespace Nolvex::Benchmarks
