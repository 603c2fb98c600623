// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureServer.h"

#include "support/WireFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace Nolvex::Tests {

namespace {

using namespace Viewer;

using Clock = std::chrono::steady_clock;

// The bytes of an image of one byte a channel, with the top row first.
std::string bytesOf(const Image& image)
{
    std::string bytes;
    for (std::int32_t y = image.descriptor().height; y-- > 0;) {
        const ArrayView<const std::byte> row = image.row(y);
        bytes.append(reinterpret_cast<const char*>(row.data()), row.size());
    }
    return bytes;
}

std::string grey(int width, int height)
{
    return size(width, height) + format("UINT8_GREY");
}

std::string nameOf(int number)
{
    return std::to_string(number);
}

WireLimits hasty()
{
    WireLimits limits;
    limits.messageTime = std::chrono::milliseconds(1000);
    limits.minBytesPerSecond = 1000;
    return limits;
}

TEST(PictureServerTest, openedPicture_arrivesOnTheMainThread)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    EXPECT_EQ(sender.ask(command("open", "a", grey(2, 3)), "abcdef"), ANSWER_OK);
    EXPECT_TRUE(watched.log.empty());
    ASSERT_TRUE(serveUntil([&] { return watched.isComplete(L"a"); }));
    EXPECT_EQ(bytesOf(watched.image(L"a")), "abcdef");
    EXPECT_EQ(watched.pictures.at(L"a").picture->name(), L"a");
    EXPECT_EQ(watched.log, Array<String>({L"received a"}));
}

TEST(PictureServerTest, rectangles_arriveInAPictureThatWasCreated)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    EXPECT_EQ(sender.ask(command("create", "a", grey(2, 2))), ANSWER_OK);
    EXPECT_EQ(sender.ask(command("update", "a", place(1, 0) + size(1, 2)), "xy"), ANSWER_OK);
    EXPECT_EQ(sender.ask(command("update", "a", place(0, 1) + size(1, 1) + "<Progress>1</Progress>"), "z"),
              ANSWER_OK);
    ASSERT_TRUE(serveUntil([&] { return watched.isComplete(L"a"); }));
    EXPECT_EQ(bytesOf(watched.image(L"a")), std::string("\0xzy", 4));
}

TEST(PictureServerTest, progressAlone_isTold)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(2, 2)));
    ASSERT_TRUE(serveUntil([&] { return watched.states == 1; }));
    EXPECT_EQ(sender.ask(command("progress", "a", "<Progress>0.5</Progress>")), ANSWER_OK);
    ASSERT_TRUE(serveUntil([&] { return watched.hasLogged(L"progressed a"); }));
    EXPECT_EQ(watched.pictures.at(L"a").progress, 0.5f);
    EXPECT_EQ(watched.states, 1);
}

TEST(PictureServerTest, closedPicture_isTold)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(2, 2)));
    EXPECT_EQ(sender.ask(command("close", "a")), ANSWER_OK);
    EXPECT_TRUE(serveUntil([&] { return watched.hasLogged(L"closed a"); }));
}

TEST(PictureServerTest, severalMessagesAtOnce_areAnsweredInTheirOrder)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.send(command("create", "a", grey(2, 2)));
    sender.send(command("update", "a", place(2, 2) + size(1, 1)), "x");
    sender.send(command("update", "a", place(1, 1) + size(1, 1)), "x");
    EXPECT_EQ(sender.answer(), ANSWER_OK);
    EXPECT_EQ(sender.answer(), refusal("The rectangle is not inside of the picture."));
    EXPECT_EQ(sender.answer(), ANSWER_OK);
}

TEST(PictureServerTest, refusedCommands_leaveTheConnectionOpen)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    EXPECT_EQ(sender.ask("<Version>1</Version><Command>dance</Command>"),
              refusal("The command \"dance\" is unknown."));
    EXPECT_EQ(sender.ask("<Version>7</Version>"), refusal("This viewer speaks version 1 of the protocol."));
    EXPECT_EQ(sender.ask("<Version>1</Version><Command>dance</Command>", "some bytes"),
              refusal("The command \"dance\" is unknown."));
    EXPECT_EQ(sender.ask(command("open", "a", grey(2, 2)), "abc"),
              refusal("The pixels of this rectangle take 4 bytes, not 3."));
    EXPECT_EQ(sender.ask(command("update", "a", place(0, 0) + size(1, 1)), "x"),
              refusal("There is no open picture \"a\"."));
    EXPECT_EQ(sender.ask(command("open", "a", grey(1, 1)), "a"), ANSWER_OK);
}

TEST(PictureServerTest, senderThatDiesInTheMiddle_leavesWhatHasArrived)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(2, 2)));
    sender.ask(command("update", "a", place(0, 0) + size(1, 1)), "x");
    // The connection ends in the middle of the next rectangle.
    sender.socket().send(BareSender::message(command("update", "a", place(0, 1) + size(2, 1)), 2) + "y");
    sender.socket().close();
    ASSERT_TRUE(serveUntil([&] { return watched.hasLogged(L"lost a"); }));
    EXPECT_EQ(bytesOf(watched.image(L"a")), std::string("x\0\0\0", 4));
    EXPECT_FALSE(watched.isComplete(L"a"));
    EXPECT_EQ(watched.reason, L"A message of the sender broke off, or could not be read.");
    EXPECT_EQ(watched.log.back(), L"lost a");
}

TEST(PictureServerTest, senderThatHangsUp_losesIncompletePicturesOnly)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("open", "whole", grey(1, 1)), "x");
    sender.ask(command("create", "half", grey(1, 1)));
    sender.socket().close();
    ASSERT_TRUE(serveUntil([&] { return watched.hasLogged(L"lost half"); }));
    EXPECT_EQ(watched.reason, L"The connection to the sender ended before the picture was complete.");
    EXPECT_TRUE(watched.isComplete(L"whole"));
    EXPECT_FALSE(watched.hasLogged(L"lost whole"));
}

TEST(PictureServerTest, forgottenPicture_isRefusedToItsSender)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(2, 2)));
    watched.server.forget(L"a");
    EXPECT_EQ(sender.ask(command("update", "a", place(0, 0) + size(1, 1)), "x"),
              refusal("There is no open picture \"a\"."));
}

TEST(PictureServerTest, forgottenPicture_isNotToldEvenIfItsStateWaits)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    ASSERT_EQ(sender.ask(command("open", "a", grey(1, 1)), "x"), ANSWER_OK);
    while (!wxAppConsole::GetInstance()->HasPendingEvents())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    watched.server.forget(L"a");
    ASSERT_EQ(sender.ask(command("open", "b", grey(1, 1)), "x"), ANSWER_OK);
    ASSERT_TRUE(serveUntil([&] { return watched.hasLogged(L"received b"); }));
    EXPECT_FALSE(watched.hasLogged(L"received a"));
    ASSERT_EQ(sender.ask(command("open", "a", grey(1, 1)), "x"), ANSWER_OK);
    EXPECT_TRUE(serveUntil([&] { return watched.hasLogged(L"received a"); })) << "it was sent anew";
}

TEST(PictureServerTest, bodiesThatAreTooLarge_endTheConnection)
{
    for (const std::uint64_t claim :
         {std::uint64_t(WireLimits::MAX_BODY_BYTES) + 1, std::uint64_t(1) << 40}) {
        WatchedServer watched;
        BareSender sender(watched.port);
        sender.socket().send(BareSender::message(command("open", "a", grey(2, 2)), claim));
        EXPECT_EQ(sender.answer(), refusal("A message takes at most 268435456 bytes of pixels."));
        EXPECT_EQ(sender.socket().receiveAll(), "");
    }
}

TEST(PictureServerTest, files_areRefused)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.socket().send(terminated("<root><DataType>1</DataType><Name>/etc/evil</Name>"
                                    "<FileSize>0</FileSize><Compressed>0</Compressed></root>"));
    EXPECT_EQ(sender.answer(), refusal("The viewer takes no files."));
    EXPECT_EQ(sender.socket().receiveAll(), "");
}

TEST(PictureServerTest, foreignProtocols_endTheirOwnConnectionOnly)
{
    WatchedServer watched;
    BareSender friendly(watched.port);
    for (const std::string& bytes :
         {std::string("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n", 36), std::string("\0\0\0\0", 4),
          terminated("<root><DataType>7</DataType></root>"), std::string(100'000, '<'),
          terminated("<root><DataType>2</DataType><FileSize>-1</FileSize></root>")}) {
        BareSender stranger(watched.port);
        stranger.socket().send(bytes);
        stranger.socket().shutdownSending();
        // Ends, however it ends.
        stranger.socket().receiveAll();
    }
    EXPECT_EQ(friendly.ask(command("open", "a", grey(1, 1)), "x"), ANSWER_OK);
}

TEST(PictureServerTest, dripFedMessage_isEndedAndSaid)
{
    WatchedServer watched(hasty());
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(100, 10)));
    sender.socket().send(BareSender::message(command("update", "a", place(0, 0) + size(100, 10)), 1000));
    // A second, and another for 1,000 bytes. The bytes themselves come too slowly.
    const auto begin = Clock::now();
    std::thread dripping([&] {
        while (Clock::now() - begin < std::chrono::seconds(10) && sender.socket().send("x"))
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
    });
    EXPECT_TRUE(serveUntil([&] { return watched.hasLogged(L"lost a"); }));
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(8));
    EXPECT_EQ(watched.reason, L"The sender was too slow.");
    dripping.join();
}

TEST(PictureServerTest, silentConnections_stayOpen)
{
    WatchedServer watched(hasty());
    BareSender sender(watched.port);
    EXPECT_EQ(sender.ask(command("create", "a", grey(1, 1))), ANSWER_OK);
    std::this_thread::sleep_for(std::chrono::milliseconds(2500));
    EXPECT_EQ(sender.ask(command("update", "a", place(0, 0) + size(1, 1)), "x"), ANSWER_OK);
}

TEST(PictureServerTest, hundredConnections_areServedOrToldThatTheyAreTooMany)
{
    WatchedServer watched;
    std::vector<BareSender> senders;
    int served = 0;
    for (int i = 0; i < 100; ++i)
        senders.emplace_back(watched.port);
    for (int i = 0; i < 100; ++i) {
        BareSender& sender = senders[static_cast<std::size_t>(i)];
        const std::string answer = sender.ask(command("open", nameOf(i), grey(1, 1)), "x");
        // The refusal may be lost when the connection ends with bytes that were not read.
        EXPECT_EQ(answer == ANSWER_OK, i < 64) << i << ": " << answer;
        served += answer == ANSWER_OK ? 1 : 0;
    }
    EXPECT_EQ(served, 64);
    senders.erase(senders.begin(), senders.begin() + 10);
    std::string answer;
    EXPECT_TRUE(serveUntil([&] {
        answer = BareSender(watched.port).ask(command("open", "late", grey(1, 1)), "x");
        return answer == ANSWER_OK;
    }));
}

TEST(PictureServerTest, refusedConnection_isToldWhy)
{
    WireLimits limits;
    limits.maxConnections = 1;
    WatchedServer watched(limits);
    BareSender first(watched.port);
    EXPECT_EQ(first.ask(command("create", "a", grey(1, 1))), ANSWER_OK);
    BareSender second(watched.port);
    EXPECT_EQ(second.answer(), refusal("The viewer has as many connections as it takes, which is 1."));
}

TEST(PictureServerTest, manySmallUpdates_areToldAtABoundedRate)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(100, 100)));
    const auto begin = Clock::now();
    std::thread sending([&] {
        for (int i = 0; i < 250; ++i)
            sender.ask(command("update", "a", place(i % 100, i / 100) + size(1, 1)), "x");
        sender.ask(command("progress", "a", "<Progress>1</Progress>"));
    });
    EXPECT_TRUE(serveUntil([&] { return watched.isComplete(L"a"); }));
    sending.join();
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    EXPECT_LE(watched.states, elapsed.count() / 50 + 2);
    EXPECT_EQ(bytesOf(watched.image(L"a")), std::string(250, 'x') + std::string(9750, '\0'));
}

// A window that is being dragged holds the main thread of Windows up.
TEST(PictureServerTest, busyMainThread_getsTheLastStateOnly)
{
    WatchedServer watched;
    BareSender sender(watched.port);
    sender.ask(command("create", "a", grey(1, 1)));
    ASSERT_TRUE(serveUntil([&] { return watched.states == 1; }));
    for (const char* const pixel : {"a", "b", "c", "d", "e"}) {
        sender.ask(command("update", "a", place(0, 0) + size(1, 1)), pixel);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    ASSERT_TRUE(serveUntil([&] { return bytesOf(watched.image(L"a")) == "e"; }));
    EXPECT_LE(watched.states, 3);
}

TEST(PictureServerTest, twoServers_doNotMixTheirPictures)
{
    WatchedServer first;
    WatchedServer second;
    ASSERT_NE(first.port, second.port);
    BareSender toFirst(first.port);
    BareSender toSecond(second.port);
    EXPECT_EQ(toFirst.ask(command("open", "a", grey(1, 1)), "1"), ANSWER_OK);
    EXPECT_EQ(toSecond.ask(command("open", "a", grey(1, 1)), "2"), ANSWER_OK);
    ASSERT_TRUE(serveUntil([&] { return first.isComplete(L"a") && second.isComplete(L"a"); }));
    EXPECT_EQ(bytesOf(first.image(L"a")), "1");
    EXPECT_EQ(bytesOf(second.image(L"a")), "2");
}

TEST(PictureServerTest, usedPort_isRefusedWithAReason)
{
    WatchedServer watched;
    PictureServer second({});
    const auto port = second.start(Wx::Legacy::SocketAddress::localhost(watched.port));
    ASSERT_FALSE(port);
    EXPECT_NE(port.error().find(String(std::to_wstring(watched.port))), String::NPOS);
    EXPECT_FALSE(second.isRunning());
}

TEST(PictureServerTest, stop_isPromptInTheMiddleOfMessages)
{
    WatchedServer watched;
    std::vector<BareSender> senders;
    for (int i = 0; i < 30; ++i) {
        senders.emplace_back(watched.port);
        senders.back().ask(command("create", nameOf(i), grey(100, 100)));
        senders.back().socket().send(
            BareSender::message(command("update", nameOf(i), place(0, 0) + size(100, 100)), 10'000));
    }
    const auto begin = Clock::now();
    watched.server.stop();
    EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(1500));
    EXPECT_FALSE(watched.server.isRunning());
    const std::size_t told = watched.log.size();
    wxAppConsole::GetInstance()->ProcessPendingEvents();
    EXPECT_EQ(watched.log.size(), told);
}

TEST(PictureServerTest, stoppedServer_canStartAgain)
{
    WatchedServer watched;
    watched.server.stop();
    const auto port = watched.server.start();
    ASSERT_TRUE(port);
    EXPECT_EQ(BareSender(*port).ask(command("open", "a", grey(1, 1)), "x"), ANSWER_OK);
    EXPECT_TRUE(serveUntil([&] { return watched.isComplete(L"a"); }));
}

TEST(PictureServerTest, callback_mayDestroyTheServer)
{
    for (const char* const event : {"open", "create", "close"}) {
        std::unique_ptr<PictureServer> server;
        const auto destroy = [&server] { server.reset(); };
        server = std::make_unique<PictureServer>(
            PictureServer::Callbacks{.received =
                                         [&](const ArrivedPicture&) {
                                             if (std::string(event) == "open")
                                                 destroy();
                                         },
                                     .closed = [&](const String&) { destroy(); },
                                     .connectionLost = [&](const String&, const String&) { destroy(); }});
        BareSender sender(*server->start());
        sender.send(command(event == std::string("close") ? "create" : event, "a", grey(1, 1)),
                    event == std::string("open") ? "x" : "");
        sender.answer();
        if (event == std::string("close"))
            sender.ask(command("close", "a"));
        if (event == std::string("create"))
            sender.socket().close();
        EXPECT_TRUE(serveUntil([&] { return server == nullptr; })) << event;
    }
}

TEST(PictureServerTest, destroyedServer_tellsNothingMore)
{
    std::unique_ptr<PictureServer> server;
    Array<String> names;
    server = std::make_unique<PictureServer>(
        PictureServer::Callbacks{.received = [&](const ArrivedPicture& arrived) {
            names.push_back(arrived.name);
            if (arrived.name == L"b")
                server.reset();
        }});
    BareSender sender(*server->start());
    sender.ask(command("open", "a", grey(1, 1)), "x");
    // The state of the first picture waits for the main thread. The two others are then told together.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    sender.ask(command("open", "b", grey(1, 1)), "x");
    sender.ask(command("open", "c", grey(1, 1)), "x");
    ASSERT_TRUE(serveUntil([&] { return server == nullptr; }));
    wxAppConsole::GetInstance()->ProcessPendingEvents();
    EXPECT_EQ(names, Array<String>({L"a", L"b"}));
}

TEST(PictureServerTest, picture_outlivesTheServer)
{
    SharedPicture picture;
    {
        WatchedServer watched;
        BareSender sender(watched.port);
        sender.ask(command("open", "a", grey(1, 1)), "x");
        ASSERT_TRUE(serveUntil([&] { return watched.isComplete(L"a"); }));
        picture = watched.pictures.at(L"a").picture;
    }
    EXPECT_EQ(bytesOf(picture->image()), "x");
}

} // namespace

} // namespace Nolvex::Tests
