// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureSender.h"

#include "support/WireFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <string>
#include <thread>

namespace Nolvex::Tests {

namespace {

using namespace Viewer;

const wchar_t LOOPBACK[] = L"127.0.0.1";

// Every byte depends on its place, so that a byte at a wrong place is noticed.
Image patterned(std::int32_t width, std::int32_t height, PixelFormat format, unsigned seed = 1)
{
    Image image = *Image::create(width, height, format, 1.7f);
    std::uint32_t state = seed;
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::byte& value : image.row(y)) {
            state = state * 1664525u + 1013904223u;
            value = static_cast<std::byte>(state >> 24);
        }
    }
    return image;
}

bool areEqual(const Image& a, const Image& b)
{
    if (a.rowBytes() != b.rowBytes() || a.descriptor().height != b.descriptor().height ||
        a.descriptor().format != b.descriptor().format)
        return false;
    for (std::int32_t y = 0; y < a.descriptor().height; ++y) {
        if (std::memcmp(a.row(y).data(), b.row(y).data(), a.rowBytes()) != 0)
            return false;
    }
    return true;
}

class PictureSenderTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_FALSE(m_sender.connect(LOOPBACK, m_watched.port)); }

    WatchedServer m_watched;
    PictureSender m_sender{std::chrono::seconds(10)};
};

TEST_F(PictureSenderTest, pictureOfEachFormat_arrivesBitByBit)
{
    for (int i = 0; i < PIXEL_FORMAT_COUNT; ++i) {
        const Image image = patterned(37, 21, static_cast<PixelFormat>(i));
        const String name(std::to_wstring(i));
        EXPECT_EQ(m_sender.send(name, image).value_or(String()), L"");
        ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(name); }));
        EXPECT_TRUE(areEqual(m_watched.image(name), image)) << i;
        EXPECT_EQ(m_watched.image(name).descriptor().gamma, 1.7f);
    }
}

TEST_F(PictureSenderTest, kindOfAlpha_arrivesWithPicturesThatHaveAlpha)
{
    for (const int side : {3, 300}) {
        for (const PixelFormat format : {PixelFormat::FLOAT32_RGBA, PixelFormat::FLOAT32_RGB}) {
            const String name(std::to_wstring(side * 100 + static_cast<int>(format)));
            const Image image = patterned(side, side, format);
            EXPECT_FALSE(m_sender.send(name, image, {}, Viewer::AlphaKind::ASSOCIATED));
            ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(name); }));
            const bool hasAlpha = format == PixelFormat::FLOAT32_RGBA;
            EXPECT_EQ(m_watched.pictures.at(name).picture->alpha(),
                      hasAlpha ? Viewer::AlphaKind::ASSOCIATED : Viewer::AlphaKind::STRAIGHT);
        }
    }
}

TEST_F(PictureSenderTest, pictureOfManyBands_arrivesBitByBit)
{
    const Image image = patterned(1000, 700, PixelFormat::FLOAT32_RGB);
    EXPECT_FALSE(m_sender.send(L"a", image));
    ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(L"a"); }));
    EXPECT_TRUE(areEqual(m_watched.image(L"a"), image));
}

TEST_F(PictureSenderTest, narrowestAndWidestPictures_arrive)
{
    for (const Pixel side : {Pixel{1, 1}, Pixel{1, 30'000}, Pixel{30'000, 1}}) {
        const Image image = patterned(side.x, side.y, PixelFormat::UINT16_RGBA);
        const String name(std::to_wstring(side.x) + L"x" + std::to_wstring(side.y));
        EXPECT_FALSE(m_sender.send(name, image));
        ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(name); }));
        EXPECT_TRUE(areEqual(m_watched.image(name), image));
    }
}

TEST_F(PictureSenderTest, rectangles_replaceTheirPart)
{
    const Image before = patterned(64, 48, PixelFormat::UINT8_RGB, 1);
    const Image after = patterned(64, 48, PixelFormat::UINT8_RGB, 2);
    EXPECT_FALSE(m_sender.send(L"a", before));
    ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(L"a"); }));
    const Bucket area{{3, 5}, {40, 48}};
    EXPECT_FALSE(m_sender.sendRectangle(L"a", after, area));
    ASSERT_TRUE(serveUntil([&] { return m_watched.pictures.at(L"a").changed == area; }));
    const Image& shown = m_watched.image(L"a");
    for (std::int32_t y = 0; y < 48; ++y) {
        for (std::int32_t x = 0; x < 64; ++x) {
            const Image& expected = area.contains({x, 47 - y}) ? after : before;
            ASSERT_EQ(shown.row(y)[static_cast<std::size_t>(x) * 3],
                      expected.row(y)[static_cast<std::size_t>(x) * 3])
                << x << ", " << y;
        }
    }
}

TEST_F(PictureSenderTest, rectangleOutsideOfTheImage_isNotSent)
{
    const Image image = patterned(4, 4, PixelFormat::UINT8_GREY);
    for (const Bucket& area : {Bucket{{0, 0}, {5, 1}}, Bucket{{-1, 0}, {1, 1}}, Bucket{}})
        EXPECT_EQ(m_sender.sendRectangle(L"a", image, area), L"The rectangle is not inside of the picture.");
}

TEST_F(PictureSenderTest, refusal_isReturnedAndLeavesTheConnection)
{
    const Image image = patterned(4, 4, PixelFormat::UINT8_GREY);
    EXPECT_EQ(m_sender.sendRectangle(L"a", image, {{0, 0}, {1, 1}}), L"There is no open picture \"a\".");
    EXPECT_EQ(m_sender.close(L"a"), L"There is no open picture \"a\".");
    EXPECT_EQ(m_sender.send(L"a\nb", image), L"Name must have 1 to 1024 bytes and no control characters.");
    EXPECT_TRUE(m_sender.isConnected());
    EXPECT_FALSE(m_sender.send(L"a", image));
    EXPECT_FALSE(m_sender.close(L"a"));
}

// The answers to the bands that were sent ahead must not be taken for those of the next command.
TEST_F(PictureSenderTest, refusalOfManyBands_isReturnedOnce)
{
    const Image image = patterned(1000, 1000, PixelFormat::FLOAT32_RGBA);
    EXPECT_EQ(m_sender.sendRectangle(L"a", image, {{0, 0}, {1000, 1000}}),
              L"There is no open picture \"a\".");
    EXPECT_FALSE(m_sender.create(L"a", image.descriptor()));
    EXPECT_FALSE(m_sender.tellProgress(L"a", 1.0f));
}

TEST_F(PictureSenderTest, progress_growsToOneOnBothSides)
{
    const Image image = patterned(1000, 700, PixelFormat::FLOAT32_RGB);
    Array<float> shares;
    EXPECT_FALSE(m_sender.send(L"a", image, [&](float share) {
        shares.push_back(share);
        return true;
    }));
    ASSERT_GE(shares.size(), 3u);
    EXPECT_EQ(shares.front(), 0.0f);
    EXPECT_EQ(shares.back(), 1.0f);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    ASSERT_TRUE(serveUntil([&] { return m_watched.isComplete(L"a"); }));
    EXPECT_EQ(m_watched.pictures.at(L"a").progress, 1.0f);
}

TEST_F(PictureSenderTest, progressThatReturnsFalse_stopsAndLeavesTheConnection)
{
    const Image image = patterned(1000, 700, PixelFormat::FLOAT32_RGB);
    EXPECT_EQ(m_sender.send(L"a", image, [](float share) { return share < 0.3f; }),
              L"The sending was cancelled.");
    EXPECT_TRUE(m_sender.isConnected());
    EXPECT_FALSE(m_sender.close(L"a"));
    EXPECT_TRUE(serveUntil([&] { return m_watched.hasLogged(L"closed a"); }));
    EXPECT_FALSE(m_watched.isComplete(L"a"));
}

TEST(PictureSenderAloneTest, unknownHost_isNamed)
{
    PictureSender sender;
    EXPECT_EQ(sender.connect(L"", 1), L"The host \"\" is unknown.");
    EXPECT_FALSE(sender.isConnected());
}

TEST(PictureSenderAloneTest, portWithoutViewer_isNamed)
{
    RawSocket listener = RawSocket::listening();
    const unsigned short port = listener.port();
    listener.close();
    PictureSender sender;
    EXPECT_EQ(sender.connect(LOOPBACK, port), L"There is no viewer that listens on port " +
                                                  String(std::to_wstring(port)) + L" of \"127.0.0.1\".");
    EXPECT_EQ(sender.close(L"a"), L"There is no connection to a viewer.");
}

TEST(PictureSenderAloneTest, viewerThatDoesNotAnswer_isGivenUp)
{
    RawSocket listener = RawSocket::listening();
    PictureSender sender(std::chrono::seconds(1));
    ASSERT_FALSE(sender.connect(LOOPBACK, listener.port()));
    EXPECT_EQ(sender.close(L"a"), L"The viewer does not answer.");
    EXPECT_FALSE(sender.isConnected());
}

TEST(PictureSenderAloneTest, viewerThatReadsNothing_isGivenUp)
{
    RawSocket listener = RawSocket::listening();
    PictureSender sender(std::chrono::seconds(1));
    ASSERT_FALSE(sender.connect(LOOPBACK, listener.port()));
    RawSocket viewer = listener.accept();
    viewer.send(terminated("<root><DataType>0</DataType><Result>ok</Result></root>"));
    const auto failure = sender.send(L"a", patterned(4000, 2000, PixelFormat::FLOAT32_RGB));
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure == L"The viewer takes no more pixels." || failure == L"The viewer does not answer.")
        << failure->toUtf8();
}

TEST(PictureSenderAloneTest, otherServers_areNoticed)
{
    RawSocket listener = RawSocket::listening();
    PictureSender sender;
    ASSERT_FALSE(sender.connect(LOOPBACK, listener.port()));
    RawSocket viewer = listener.accept();
    viewer.send(terminated("<root><DataType>0</DataType></root>"));
    EXPECT_EQ(sender.close(L"a"), L"The answer is not that of a viewer.");
    viewer.send(terminated("HTTP/1.1 400 Bad Request\r\n\r\n"));
    EXPECT_EQ(sender.close(L"a"), L"The answer of the viewer could not be read.");
}

TEST(PictureSenderAloneTest, cancelFromAnotherThread_endsTheWait)
{
    RawSocket listener = RawSocket::listening();
    PictureSender sender;
    ASSERT_FALSE(sender.connect(LOOPBACK, listener.port()));
    RawSocket viewer = listener.accept();
    std::thread cancelling([&] {
        viewer.receiveText(); // the sender waits for the answer to this
        sender.cancel();
    });
    EXPECT_EQ(sender.close(L"a"), L"The sending was cancelled.");
    cancelling.join();
}

TEST(PictureSenderAloneTest, viewerThatStops_endsTheSending)
{
    WatchedServer watched;
    PictureSender sender;
    ASSERT_FALSE(sender.connect(LOOPBACK, watched.port));
    const Image image = patterned(100, 100, PixelFormat::UINT8_RGB);
    EXPECT_FALSE(sender.send(L"a", image));
    watched.server.stop();
    EXPECT_EQ(sender.send(L"a", image), L"The viewer has ended the connection.");
}

} // namespace

} // namespace Nolvex::Tests
