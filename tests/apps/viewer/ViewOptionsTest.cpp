// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewOptions.h"

#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "support/ViewerFixture.h"

using namespace Nolvex;
using Viewer::Channel;
using Viewer::DisplaySettings;

namespace {

struct ViewOptionsTest : Tests::ViewerFixture
{
    Wx::Spinner* exposure = nullptr;
    Wx::ComboBox* channel = nullptr;

    void show(const Viewer::SharedPicture& picture)
    {
        ViewerFixture::show(picture);
        exposure = Tests::findIn<Wx::Spinner>(frame);
        channel = Tests::findIn<Wx::ComboBox>(frame);
        ASSERT_NE(exposure, nullptr);
        ASSERT_NE(channel, nullptr);
    }

    void choose(Channel wanted) const { channel->selectId(static_cast<int>(wanted), true); }
};

Viewer::SharedPicture uniform(const Rgb& value, float gamma)
{
    Image image = *Image::create(30, 20, PixelFormat::FLOAT32_RGB, gamma);
    for (std::int32_t y = 0; y < 20; ++y) {
        auto* row = reinterpret_cast<float*>(image.row(y).data());
        for (std::int32_t x = 0; x < 30; ++x) {
            *row++ = value.r;
            *row++ = value.g;
            *row++ = value.b;
        }
    }
    return std::make_shared<const Viewer::Picture>(L"uniform", std::move(image));
}

} // namespace

TEST_F(ViewOptionsTest, exposure_changesThePictureOnTheScreen)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
    exposure->changeByUser(2.0f);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{255, 128, 0}));
    exposure->changeByUser(0.0f);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
}

TEST_F(ViewOptionsTest, channel_isShownInGrey)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    choose(Channel::GREEN);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{64, 64, 64}));
    choose(Channel::ALPHA);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{255, 255, 255}));
    choose(Channel::RGB);
    EXPECT_EQ(shownAtTheCorner(), (RgbBytes{128, 64, 0}));
}

TEST_F(ViewOptionsTest, settings_areKeptForTheNextPicture)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    exposure->changeByUser(2.0f);
    choose(Channel::RED);
    ASSERT_TRUE(frame->openPicture(Tests::testPicture(L"pattern.png")));
    EXPECT_EQ(view->display(), (DisplaySettings{.exposure = 2.0f, .channel = Channel::RED}));
    const RgbBytes corner = shownAtTheCorner();
    EXPECT_EQ(corner.r, corner.g);
}

TEST_F(ViewOptionsTest, channels_areAllThere)
{
    show(uniform({0.25f, 0.0625f, 0.0f, 1.0f}, 2.0f));
    EXPECT_EQ(channel->getCount(), 6);
    EXPECT_EQ(channel->getSelectedId(), static_cast<int>(Channel::RGB));
}

TEST_F(ViewOptionsTest, withoutAPicture_theSettingsDoNoHarm)
{
    show(nullptr);
    exposure->changeByUser(2.0f);
    choose(Channel::BLUE);
    Tests::pumpEvents(100);
    EXPECT_EQ(view->display(), (DisplaySettings{.exposure = 2.0f, .channel = Channel::BLUE}));
}
