// SPDX-License-Identifier: MIT
#include "apps/viewer/LoadingBar.h"

#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/viewer/PictureOpening.h"
#include "support/FrameFixture.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/gauge.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>

using namespace Nolvex;

namespace {

struct LoadingBarTest : Tests::FrameFixture
{
    Tests::TemporaryFolder folder;
    Viewer::Workspace workspace;
    Array<String> complaints;
    Viewer::PictureOpening opening{
        workspace, {[](const String&) {}, [this](const String& text) { complaints.push_back(text); }}};
    int relayouts = 0;
    Viewer::LoadingBar* bar = new Viewer::LoadingBar(panel, opening, [this] { ++relayouts; });

    // The bar refers to the members.
    ~LoadingBarTest() override { destroyFrame(); }

    // Nothing is told to this thread before events are processed, so that the reading goes on until then.
    void beginToRead() { opening.open({Tests::testPicture(L"pattern.png")}); }

    // Reads zeros for longer than the bar waits.
    void beginToReadLarge()
    {
        const Io::Path file = folder.file(L"large.pgm", "P5\n20000 20000\n255\n");
        std::filesystem::resize_file(file.native(), 19 + std::uintmax_t(20000) * 20000);
        opening.open({file});
    }

    void look(int times) const
    {
        for (int i = 0; i < times; ++i)
            bar->update();
    }
};

} // namespace

TEST_F(LoadingBarTest, withoutReading_isHidden)
{
    look(20);
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 0);
}

TEST_F(LoadingBarTest, readingOfAMoment_isNotShown)
{
    beginToRead();
    look(3);
    EXPECT_FALSE(bar->IsShown());
    opening.finish();
    look(20);
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 0);
}

TEST_F(LoadingBarTest, longReading_isShownWithItsNameUntilItsEnd)
{
    beginToRead();
    look(4);
    EXPECT_TRUE(bar->IsShown());
    EXPECT_EQ(relayouts, 1);
    EXPECT_EQ(Tests::findIn<Wx::StaticText>(bar)->GetLabel(), L"Reading pattern.png");
    look(5);
    EXPECT_EQ(relayouts, 1) << "the row is there already";
    opening.finish();
    look(1);
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 2);
}

TEST_F(LoadingBarTest, nextReading_beginsTheWaitAnew)
{
    beginToRead();
    look(3);
    opening.finish();
    look(1);
    beginToRead();
    look(3);
    EXPECT_FALSE(bar->IsShown());
    look(1);
    EXPECT_TRUE(bar->IsShown());
}

TEST_F(LoadingBarTest, gauge_showsTheShareThatWasRead)
{
    beginToReadLarge();
    ASSERT_TRUE(Tests::pumpUntil([this] { return opening.progress() > 0.0f || !opening.isRunning(); }));
    const float before = opening.progress();
    look(4);
    const auto* const gauge = Tests::findIn<wxGauge>(bar);
    const float share = float(gauge->GetValue()) / float(gauge->GetRange());
    EXPECT_GT(before, 0.0f);
    EXPECT_GE(share, before - 0.001f);
    EXPECT_LE(share, opening.progress() + 0.001f);
    opening.cancel();
}

TEST_F(LoadingBarTest, cancel_stopsTheReadingAndHidesTheRow)
{
    beginToRead();
    look(4);
    Tests::findIn<Wx::Button>(bar)->doClick({5, 5});
    EXPECT_FALSE(opening.isRunning());
    EXPECT_FALSE(bar->IsShown());
    Tests::pumpEvents(100);
    EXPECT_EQ(workspace.current(), nullptr) << "what was read is not shown";
    EXPECT_TRUE(complaints.empty());
}

TEST_F(LoadingBarTest, reading_isNoticedByItself)
{
    showFrame();
    beginToReadLarge();
    EXPECT_TRUE(Tests::pumpUntil([this] { return bar->IsShown() || !opening.isRunning(); }));
    EXPECT_TRUE(bar->IsShown());
    opening.cancel();
    EXPECT_TRUE(Tests::pumpUntil([this] { return !bar->IsShown(); }));
}
