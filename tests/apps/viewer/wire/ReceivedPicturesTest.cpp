// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/ReceivedPictures.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace Nolvex::Tests {

namespace {

using namespace Viewer;

using End = PictureNews::End;

constexpr ReceivedPictures::Connection FIRST = 1;
constexpr ReceivedPictures::Connection SECOND = 2;

class ReceivedPicturesTest : public testing::Test
{
protected:
    static WireLimits limits()
    {
        WireLimits limits;
        limits.maxPictureBytes = 10'000;
        limits.maxTotalBytes = 15'000;
        limits.maxPictures = 4;
        return limits;
    }

    static WireCommand commandOf(WireAction action, const String& name, const Bucket& area = {},
                                 PixelFormat format = PixelFormat::UINT8_GREY)
    {
        WireCommand command;
        command.action = action;
        command.name = name;
        command.area = area;
        command.format = format;
        return command;
    }

    // Returns the refusal, or an empty text.
    String apply(const WireCommand& command, const std::string& pixels = {},
                 ReceivedPictures::Connection connection = FIRST)
    {
        const auto* const bytes = reinterpret_cast<const std::byte*>(pixels.data());
        return m_pictures.apply(connection, composeWireCommand(command), {bytes, pixels.size()})
            .value_or(String());
    }

    String open(const String& name, Pixel size, const std::string& pixels,
                ReceivedPictures::Connection connection = FIRST)
    {
        return apply(commandOf(WireAction::OPEN, name, {{0, 0}, size}), pixels, connection);
    }

    String create(const String& name, Pixel size, ReceivedPictures::Connection connection = FIRST)
    {
        return apply(commandOf(WireAction::CREATE, name, {{0, 0}, size}), {}, connection);
    }

    String update(const String& name, const Bucket& area, const std::string& pixels,
                  Optional<float> progress = {}, ReceivedPictures::Connection connection = FIRST)
    {
        WireCommand command = commandOf(WireAction::UPDATE, name, area);
        command.progress = progress;
        return apply(command, pixels, connection);
    }

    String tellProgress(const String& name, float share)
    {
        WireCommand command = commandOf(WireAction::PROGRESS, name);
        command.progress = share;
        return apply(command);
    }

    Array<PictureNews> takeNews()
    {
        return m_pictures.takeNews([this](PictureNews& news) {
            m_kept = std::shared_ptr<const Image>(std::move(news.image));
            return m_kept;
        });
    }

    // The bytes of an image of one byte a pixel, with the top row first.
    static std::string bytesOf(const Image& image)
    {
        std::string bytes;
        for (std::int32_t y = image.descriptor().height; y-- > 0;) {
            const ArrayView<const std::byte> row = image.row(y);
            bytes.append(reinterpret_cast<const char*>(row.data()), row.size());
        }
        return bytes;
    }

    ReceivedPictures m_pictures{limits()};
    std::shared_ptr<const Image> m_kept;
};

TEST_F(ReceivedPicturesTest, open_hasItsFirstRowOnTop)
{
    EXPECT_EQ(open(L"a", {2, 3}, "abcdef"), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].name, L"a");
    EXPECT_TRUE(news[0].isComplete);
    EXPECT_EQ(news[0].progress, 1.0f);
    EXPECT_EQ(news[0].changed, (Bucket{{0, 0}, {2, 3}}));
    EXPECT_EQ(news[0].end, End::NONE);
    ASSERT_TRUE(m_kept);
    EXPECT_EQ(bytesOf(*m_kept), "abcdef");
    EXPECT_EQ(m_kept->row(0)[0], std::byte('e'));
}

TEST_F(ReceivedPicturesTest, create_isBlankAndIncomplete)
{
    EXPECT_EQ(create(L"a", {2, 2}), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_FALSE(news[0].isComplete);
    EXPECT_EQ(news[0].progress, 0.0f);
    ASSERT_TRUE(news[0].image);
    EXPECT_EQ(bytesOf(*news[0].image), std::string(4, '\0'));
}

TEST_F(ReceivedPicturesTest, update_changesItsRectangleOnly)
{
    create(L"a", {4, 3});
    takeNews();
    EXPECT_EQ(update(L"a", {{1, 0}, {3, 2}}, "abcd"), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].changed, (Bucket{{1, 0}, {3, 2}}));
    EXPECT_EQ(bytesOf(*news[0].image), std::string("\0ab\0\0cd\0\0\0\0\0", 12));
}

TEST_F(ReceivedPicturesTest, severalUpdates_areToldTogether)
{
    create(L"a", {8, 8});
    takeNews();
    update(L"a", {{1, 1}, {2, 2}}, "x");
    update(L"a", {{5, 6}, {6, 7}}, "y", 0.5f);
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].changed, (Bucket{{1, 1}, {6, 7}}));
    EXPECT_EQ(news[0].progress, 0.5f);
    EXPECT_FALSE(m_pictures.hasNews());
    EXPECT_TRUE(takeNews().empty());
}

TEST_F(ReceivedPicturesTest, givenState_neverChanges)
{
    create(L"a", {2, 1});
    update(L"a", {{0, 0}, {1, 1}}, "x");
    const Array<PictureNews> before = takeNews();
    update(L"a", {{1, 0}, {2, 1}}, "y");
    EXPECT_EQ(bytesOf(*before[0].image), std::string("x\0", 2));
    EXPECT_EQ(bytesOf(*takeNews()[0].image), "xy");
}

TEST_F(ReceivedPicturesTest, completePicture_canStillBeChanged)
{
    open(L"a", {2, 1}, "xy");
    takeNews();
    const std::shared_ptr<const Image> first = m_kept;
    EXPECT_EQ(update(L"a", {{1, 0}, {2, 1}}, "z"), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_TRUE(news[0].isComplete);
    EXPECT_EQ(bytesOf(*first), "xy");
    EXPECT_EQ(bytesOf(*m_kept), "xz");
}

// Another pass of a renderer begins.
TEST_F(ReceivedPicturesTest, progressBelowOne_makesACompletePictureIncomplete)
{
    open(L"a", {2, 1}, "xy");
    takeNews();
    EXPECT_EQ(tellProgress(L"a", 0.5f), L"");
    Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_FALSE(news[0].isComplete);
    EXPECT_FALSE(news[0].image);
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "z"), L"");
    news = takeNews();
    EXPECT_EQ(bytesOf(*news[0].image), "zy");
}

TEST_F(ReceivedPicturesTest, progressAlone_bringsNoPixels)
{
    create(L"a", {2, 1});
    takeNews();
    EXPECT_EQ(tellProgress(L"a", 0.25f), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].progress, 0.25f);
    EXPECT_FALSE(news[0].image);
    EXPECT_EQ(tellProgress(L"a", 0.25f), L"");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, sameName_isReplaced)
{
    open(L"a", {2, 1}, "xy");
    EXPECT_EQ(open(L"a", {1, 3}, "abc"), L"");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(bytesOf(*m_kept), "abc");
    EXPECT_EQ(m_pictures.totalBytes(), 3);
}

TEST_F(ReceivedPicturesTest, close_isToldAndFreesTheName)
{
    open(L"a", {2, 1}, "xy");
    takeNews();
    EXPECT_EQ(apply(commandOf(WireAction::CLOSE, L"a")), L"");
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "z"), L"There is no open picture \"a\".");
    EXPECT_EQ(apply(commandOf(WireAction::CLOSE, L"a")), L"There is no open picture \"a\".");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].end, End::CLOSED);
    EXPECT_EQ(m_pictures.totalBytes(), 0);
}

TEST_F(ReceivedPicturesTest, pictureThatIsOpenedAnew_comesAfterTheEndOfTheOld)
{
    open(L"a", {2, 1}, "xy");
    apply(commandOf(WireAction::CLOSE, L"a"));
    open(L"a", {1, 1}, "z");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 2u);
    EXPECT_EQ(news[0].end, End::CLOSED);
    EXPECT_EQ(news[1].end, End::NONE);
}

TEST_F(ReceivedPicturesTest, forgottenPicture_isUnknownWithoutNews)
{
    open(L"a", {2, 1}, "xy");
    takeNews();
    m_pictures.forget(L"a");
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "z"), L"There is no open picture \"a\".");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, forgottenPictureThatHasEnded_leavesNoNews)
{
    open(L"a", {2, 1}, "xx");
    open(L"b", {2, 1}, "xx");
    m_pictures.endConnection(FIRST, L"It ended.");
    m_pictures.forget(L"a");
    const auto news = takeNews();
    ASSERT_EQ(news.size(), 1U);
    EXPECT_EQ(news[0].name, L"b");
}

TEST_F(ReceivedPicturesTest, rectanglesOutside_changeNothing)
{
    create(L"a", {4, 3});
    takeNews();
    for (const Bucket& area : {Bucket{{4, 0}, {5, 1}}, Bucket{{0, 3}, {1, 4}}, Bucket{{3, 0}, {5, 1}},
                               Bucket{{0, 2}, {1, 4}}, Bucket{{0, 0}, {5, 4}}}) {
        const std::string pixels(static_cast<std::size_t>(area.width() * area.height()), 'x');
        EXPECT_EQ(update(L"a", area, pixels), L"The rectangle is not inside of the picture.");
    }
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, wrongNumberOfPixels_changesNothing)
{
    create(L"a", {4, 3});
    takeNews();
    EXPECT_EQ(update(L"a", {{0, 0}, {2, 2}}, "abc"), L"The pixels of this rectangle take 4 bytes, not 3.");
    EXPECT_EQ(update(L"a", {{0, 0}, {2, 2}}, "abcde"), L"The pixels of this rectangle take 4 bytes, not 5.");
    EXPECT_EQ(open(L"b", {2, 2}, "abc"), L"The pixels of this rectangle take 4 bytes, not 3.");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, pixels_belongToTheirCommands)
{
    EXPECT_EQ(apply(commandOf(WireAction::CREATE, L"a", {{0, 0}, {1, 1}}), "x"),
              L"This command takes no pixels: send it as an XML string.");
    EXPECT_EQ(open(L"a", {1, 1}, ""), L"This command needs pixels: send it as raw data.");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, largePictures_areRefusedBeforeTheyTakeMemory)
{
    EXPECT_EQ(create(L"a", {100, 101}), L"The picture is too large: at most 10000 bytes are possible.");
    EXPECT_EQ(create(L"a", {65'536, 65'536}), L"The picture is too large: at most 10000 bytes are possible.");
    EXPECT_EQ(create(L"a", {100, 100}), L"");
    EXPECT_EQ(create(L"b", {100, 51}),
              L"The open pictures would take more memory than the viewer has for them.");
    // The old picture makes room for the new one.
    EXPECT_EQ(create(L"a", {100, 99}), L"");
    EXPECT_EQ(create(L"b", {100, 51}), L"");
}

TEST_F(ReceivedPicturesTest, numberOfPictures_hasALimit)
{
    for (const wchar_t* name : {L"a", L"b", L"c", L"d"})
        EXPECT_EQ(create(name, {1, 1}), L"");
    EXPECT_EQ(create(L"e", {1, 1}), L"There are as many open pictures as the viewer takes, which is 4.");
    EXPECT_EQ(create(L"d", {2, 1}), L"");
    apply(commandOf(WireAction::CLOSE, L"a"));
    EXPECT_EQ(create(L"e", {1, 1}), L"");
}

TEST_F(ReceivedPicturesTest, endsThatNobodyTakes_haveALimit)
{
    String refusal;
    int opened = 0;
    for (; refusal.isEmpty() && opened < 100'000; ++opened) {
        refusal = create(L"a", {1, 1});
        apply(commandOf(WireAction::CLOSE, L"a"));
    }
    EXPECT_EQ(refusal, L"The viewer is busy.");
    takeNews();
    EXPECT_EQ(create(L"a", {1, 1}), L"");
}

TEST_F(ReceivedPicturesTest, incompletePicture_isLostWithItsConnection)
{
    create(L"a", {2, 1});
    update(L"a", {{0, 0}, {1, 1}}, "x", 0.5f);
    m_pictures.endConnection(FIRST, L"The cable was cut.");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].end, End::LOST);
    EXPECT_EQ(news[0].text, L"The cable was cut.");
    EXPECT_EQ(news[0].progress, 0.5f);
    EXPECT_FALSE(news[0].isComplete);
    ASSERT_TRUE(news[0].image);
    EXPECT_EQ(bytesOf(*news[0].image), std::string("x\0", 2));
    EXPECT_EQ(m_pictures.totalBytes(), 0);
}

TEST_F(ReceivedPicturesTest, lostPictureWithoutNewPixels_bringsNone)
{
    create(L"a", {2, 1});
    takeNews();
    m_pictures.endConnection(FIRST, L"Gone.");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].end, End::LOST);
    EXPECT_FALSE(news[0].image);
}

TEST_F(ReceivedPicturesTest, completePicture_isNotLost)
{
    open(L"a", {2, 1}, "xy");
    m_pictures.endConnection(FIRST, L"Gone.");
    const Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].end, End::NONE);
    EXPECT_TRUE(news[0].isComplete);
    ASSERT_TRUE(news[0].image);
    EXPECT_EQ(bytesOf(*news[0].image), "xy");
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "z"), L"There is no open picture \"a\".");
}

TEST_F(ReceivedPicturesTest, completePictureThatWasTaken_endsWithoutNews)
{
    open(L"a", {2, 1}, "xy");
    takeNews();
    m_pictures.endConnection(FIRST, L"Gone.");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, pictureOfTwoConnections_livesWithTheOther)
{
    create(L"a", {2, 1}, FIRST);
    EXPECT_EQ(update(L"a", {{1, 0}, {2, 1}}, "y", {}, SECOND), L"");
    m_pictures.endConnection(FIRST, L"Gone.");
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "x", 1.0f, SECOND), L"");
    Array<PictureNews> news = takeNews();
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].end, End::NONE);
    EXPECT_EQ(bytesOf(*m_kept), "xy");
    m_pictures.endConnection(SECOND, L"Gone.");
    EXPECT_FALSE(m_pictures.hasNews());
}

TEST_F(ReceivedPicturesTest, memoryThatRunsOutWhileKeeping_losesOnlyTheName)
{
    open(L"a", {2, 1}, "xy");
    const Array<PictureNews> news =
        m_pictures.takeNews([](PictureNews&) -> std::shared_ptr<const Image> { throw std::bad_alloc(); });
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(update(L"a", {{0, 0}, {1, 1}}, "z"), L"There is no open picture \"a\".");
}

TEST_F(ReceivedPicturesTest, wideFormats_keepTheirBits)
{
    const float values[] = {1.5f, -2.0f, 1e30f, std::numeric_limits<float>::infinity()};
    std::string pixels(sizeof(values), '\0');
    std::memcpy(pixels.data(), values, sizeof(values));
    EXPECT_EQ(apply(commandOf(WireAction::OPEN, L"a", {{0, 0}, {4, 1}}, PixelFormat::FLOAT32_GREY), pixels),
              L"");
    takeNews();
    EXPECT_EQ(bytesOf(*m_kept), pixels);
    EXPECT_EQ(m_kept->descriptor().format, PixelFormat::FLOAT32_GREY);
}

} // namespace

} // namespace Nolvex::Tests
