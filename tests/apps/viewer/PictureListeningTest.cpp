// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureListening.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/wire/PictureSender.h"
#include "support/ViewerFixture.h"
#include "support/WireFixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

using namespace Nolvex;
using Viewer::parseListeningAddress;
using Viewer::PictureSender;
using Wx::Legacy::SocketAddress;

namespace {

const wchar_t LOOPBACK[] = L"127.0.0.1";

Image plain(int width, int height, std::uint8_t grey)
{
    Image image = *Image::create(width, height, PixelFormat::UINT8_RGB, 1.0f);
    for (int y = 0; y < height; ++y)
        std::memset(image.row(y).data(), grey, image.rowBytes());
    return image;
}

std::byte firstByte(const Viewer::OpenPicture& picture)
{
    return picture.picture->image().row(0)[0];
}

struct PictureListeningTest : Tests::ViewerFixture
{
    unsigned short port = 0;

    void listen()
    {
        show(nullptr);
        const Expected<unsigned short, String> started = frame->listen(SocketAddress::localhost(0));
        ASSERT_TRUE(started) << Wx::toWxString(started.error());
        port = *started;
        EXPECT_NE(port, 0);
    }

    // Does the work on a thread, with a connected sender, while the window lives on.
    static void send(unsigned short to, const std::function<Optional<String>(PictureSender&)>& work)
    {
        std::atomic<bool> ended = false;
        Optional<String> failure;
        std::thread thread([&] {
            PictureSender sender(std::chrono::seconds(10));
            failure = sender.connect(LOOPBACK, to);
            if (!failure)
                failure = work(sender);
            ended = true;
        });
        EXPECT_TRUE(Tests::pumpUntil([&] { return ended.load(); }, 20'000));
        thread.join();
        EXPECT_EQ(Wx::toWxString(failure.value_or(String())), L"");
    }

    static void send(unsigned short to, const String& name, const Image& image)
    {
        send(to, [&](PictureSender& sender) { return sender.send(name, image); });
    }

    const Array<Viewer::OpenPicture>& pictures() const { return frame->workspace().pictures(); }

    bool isShown(const String& name) const
    {
        const Viewer::OpenPicture* const current = frame->workspace().current();
        return current != nullptr && current->name == name && view->picture() == current->picture;
    }

    bool hasLogged(const wxString& text) const { return log->GetValue().Contains(text); }
};

} // namespace

TEST(ListeningAddressTest, portAlone_isOfThisComputer)
{
    const Expected<SocketAddress, String> address = parseListeningAddress(L"4711");
    ASSERT_TRUE(address);
    EXPECT_EQ(address->toString(), LOOPBACK);
    EXPECT_EQ(address->getPort(), 4711);
}

TEST(ListeningAddressTest, smallestAndLargestPort_areTaken)
{
    EXPECT_EQ(parseListeningAddress(L"0")->getPort(), 0);
    EXPECT_EQ(parseListeningAddress(L"65535")->getPort(), 65535);
}

TEST(ListeningAddressTest, hostAndPort_areTaken)
{
    const Expected<SocketAddress, String> address = parseListeningAddress(L"127.0.0.2:80");
    ASSERT_TRUE(address);
    EXPECT_EQ(address->toString(), L"127.0.0.2");
    EXPECT_EQ(address->getPort(), 80);
    EXPECT_EQ(parseListeningAddress(L"localhost:80")->toString(), LOOPBACK);
}

TEST(ListeningAddressTest, asterisk_isEveryInterface)
{
    const Expected<SocketAddress, String> address = parseListeningAddress(L"*:80");
    ASSERT_TRUE(address);
    EXPECT_EQ(address->toString(), SocketAddress::anyAddress(80).toString());
    EXPECT_EQ(address->getPort(), 80);
}

TEST(ListeningAddressTest, whatIsNoPort_isRefusedInASentence)
{
    for (const wchar_t* text :
         {L"", L"x", L"80x", L"65536", L"-1", L"-18446744073709551615", L"+80", L" 80", L"80 ", L"8.0",
          L"99999999999999999999", L"127.0.0.1", L"127.0.0.1:", L"localhost:x", L"0x50", L":"}) {
        const Expected<SocketAddress, String> address = parseListeningAddress(text);
        ASSERT_FALSE(address) << text;
        EXPECT_EQ(address.error(), String(L"\"") + text + L"\" is no port. Ports are numbers up to 65535.");
    }
}

TEST(ListeningAddressTest, whatIsNoHost_isRefusedInASentence)
{
    for (const wchar_t* host : {L"", L"no host"}) {
        const Expected<SocketAddress, String> address = parseListeningAddress(String(host) + L":80");
        ASSERT_FALSE(address) << host;
        EXPECT_EQ(address.error(), String(L"There is no computer named \"") + host + L"\".");
    }
}

TEST_F(PictureListeningTest, start_tellsThePort)
{
    listen();
    EXPECT_TRUE(hasLogged(wxString(L"Listening for pictures at port ") << port << L"."));
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(PictureListeningTest, portThatIsTaken_isToldAsAFailure)
{
    make(nullptr);
    const Tests::RawSocket other = Tests::RawSocket::listening();
    const Expected<unsigned short, String> started = frame->listen(SocketAddress::localhost(other.port()));
    ASSERT_FALSE(started);
    EXPECT_EQ(lastMessage(), Wx::toWxString(started.error()));
    EXPECT_TRUE(frame->isLogShown());
}

TEST_F(PictureListeningTest, sentPicture_isShown)
{
    listen();
    send(port, L"render", plain(30, 20, 120));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
    EXPECT_EQ(pictures().size(), 1U);
    EXPECT_EQ(frame->GetTitle(), L"render (30 \u00D7 20)");
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{120, 120, 120}));
    EXPECT_TRUE(hasLogged(L"Receiving \"render\", 30 \u00D7 20 pixels."));
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(PictureListeningTest, nextState_takesThePlaceOfTheFirst)
{
    listen();
    send(port, L"render", plain(30, 20, 120));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
    const Viewer::PictureId id = pictures()[0].id;
    send(port, L"render", plain(30, 20, 240));
    ASSERT_TRUE(Tests::pumpUntil([this] { return firstByte(pictures()[0]) == std::byte(240); }));
    EXPECT_EQ(pictures().size(), 1U);
    EXPECT_EQ(pictures()[0].id, id);
    EXPECT_TRUE(isShown(L"render"));
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{240, 240, 240}));
}

TEST_F(PictureListeningTest, rectangle_changesItsPart)
{
    listen();
    send(port, [](PictureSender& sender) {
        const Image image = plain(30, 20, 200);
        Optional<String> failure = sender.create(L"render", image.descriptor());
        return failure ? failure : sender.sendRectangle(L"render", image, {{0, 0}, {30, 10}});
    });
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render") && shownAtTheCorner().r == 200; }));
    EXPECT_EQ(firstByte(pictures()[0]), std::byte(0)) << "the lower half has not come";
}

TEST_F(PictureListeningTest, stateOfAPictureInTheBackground_leavesTheShownOne)
{
    listen();
    send(port, L"first", plain(30, 20, 1));
    send(port, L"second", plain(30, 20, 2));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"second"); }));
    send(port, L"first", plain(30, 20, 3));
    ASSERT_TRUE(Tests::pumpUntil([this] { return firstByte(pictures()[0]) == std::byte(3); }));
    EXPECT_TRUE(isShown(L"second"));
}

TEST_F(PictureListeningTest, pictureThatTheSenderCloses_leaves)
{
    listen();
    send(port, L"kept", plain(30, 20, 1));
    send(port, [](PictureSender& sender) {
        const Optional<String> failure = sender.send(L"closed", plain(30, 20, 2));
        return failure ? failure : sender.close(L"closed");
    });
    EXPECT_TRUE(Tests::pumpUntil([this] { return isShown(L"kept"); }));
    EXPECT_EQ(pictures().size(), 1U);
}

TEST_F(PictureListeningTest, pictureThatTheUserCloses_staysAwayUntilItIsSentAnew)
{
    listen();
    send(port, L"render", plain(30, 20, 1));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
    command(Viewer::CLOSE_PICTURE);
    ASSERT_TRUE(pictures().empty());
    send(port, [](PictureSender& sender) {
        const Optional<String> refusal =
            sender.sendRectangle(L"render", plain(30, 20, 2), {{0, 0}, {30, 10}});
        EXPECT_EQ(Wx::toWxString(refusal.value_or(String())), L"There is no open picture \"render\".");
        return Optional<String>();
    });
    EXPECT_TRUE(pictures().empty());
    send(port, L"render", plain(30, 20, 3));
    EXPECT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
}

TEST_F(PictureListeningTest, senderThatDies_isToldAndWhatHasComeStays)
{
    using namespace Tests;
    listen();
    {
        BareSender sender(port);
        ASSERT_EQ(sender.ask(Tests::command("create", "render", size(4, 2) + format("UINT8_RGB"))),
                  ANSWER_OK);
        ASSERT_TRUE(pumpUntil([this] { return isShown(L"render"); }));
        EXPECT_FALSE(frame->isLogShown());
    }
    ASSERT_TRUE(pumpUntil([this] { return hasLogged(L"\"render\" is not complete: "); }));
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(isShown(L"render"));
}

TEST_F(PictureListeningTest, progress_isThatOfTheLeastPictureAndEndsWithIt)
{
    show(nullptr);
    Viewer::Workspace workspace;
    Viewer::PictureListening listening(*frame, workspace, {[](const String&) {}, [](const String&) {}});
    const unsigned short to = *listening.start(SocketAddress::localhost(0));
    const auto hasProgress = [&](Optional<float> wanted) {
        return Tests::pumpUntil([&] { return listening.progress() == wanted; });
    };
    const auto begin = [&](const wchar_t* name, float share) {
        return [name, share](PictureSender& sender) {
            const Optional<String> failure =
                sender.create(name, {30, 20, PixelFormat::UINT8_RGB, 1.0f}, Viewer::AlphaKind::STRAIGHT);
            return failure ? failure : sender.tellProgress(name, share);
        };
    };
    std::atomic<int> step = 0;
    const auto waitFor = [&step](int wanted) {
        while (step < wanted)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    };
    std::thread thread([&] {
        PictureSender sender(std::chrono::seconds(10));
        EXPECT_FALSE(sender.connect(LOOPBACK, to));
        EXPECT_FALSE(begin(L"first", 0.75f)(sender));
        EXPECT_FALSE(begin(L"second", 0.25f)(sender));
        waitFor(1);
        EXPECT_FALSE(sender.close(L"second"));
        waitFor(2);
    });
    EXPECT_TRUE(hasProgress(0.25f));
    step = 1;
    EXPECT_TRUE(hasProgress(0.75f));
    workspace.close(workspace.current()->id);
    EXPECT_TRUE(hasProgress({})) << "the user has closed the other picture";
    step = 2;
    thread.join();
}

TEST_F(PictureListeningTest, senderThatEndsAfterAWholePicture_isNotTold)
{
    listen();
    send(port, L"render", plain(30, 20, 1));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
    Tests::pumpEvents(200);
    EXPECT_FALSE(hasLogged(L"not complete"));
    EXPECT_FALSE(frame->isLogShown());
}

TEST_F(PictureListeningTest, receivedPicture_isClosedWithoutAQuestion)
{
    listen();
    send(port, L"render", plain(30, 20, 1));
    ASSERT_TRUE(Tests::pumpUntil([this] { return isShown(L"render"); }));
    EXPECT_FALSE(pictures()[0].isUnsaved());
    const wxWeakRef<wxFrame> weak(frame);
    frame->Close();
    frame = nullptr;
    EXPECT_TRUE(Tests::pumpUntil([&] { return !weak; }));
}

TEST_F(PictureListeningTest, twoWindows_listenAtOnce)
{
    listen();
    auto* const second = new Viewer::ViewerFrame(nullptr);
    const Expected<unsigned short, String> secondPort = second->listen(SocketAddress::localhost(0));
    ASSERT_TRUE(secondPort);
    EXPECT_NE(*secondPort, port);
    send(port, L"a", plain(3, 2, 1));
    send(*secondPort, L"b", plain(3, 2, 2));
    EXPECT_TRUE(Tests::pumpUntil([&] {
        return isShown(L"a") && second->workspace().current() != nullptr &&
               second->workspace().current()->name == L"b";
    }));
    EXPECT_EQ(pictures().size(), 1U);
    EXPECT_EQ(second->workspace().pictures().size(), 1U);
    Tests::destroyNow(second);
    send(port, L"c", plain(3, 2, 1));
    EXPECT_TRUE(Tests::pumpUntil([this] { return isShown(L"c"); })) << "the first window goes on";
}
