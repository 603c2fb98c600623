// SPDX-License-Identifier: MIT
#include "apps/gallery/Screenshots.h"

#include "NolvexLibWx/widgets/Button.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/Hand.h"
#include "support/DefaultSkinGuard.h"
#include "support/Events.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;
using Gallery::Page;
using Gallery::Scene;
using Gallery::Screenshots;
using Gallery::Hand::nth;

namespace Nolvex::Gallery {

namespace {

struct ScreenshotsTest : testing::Test
{
    ~ScreenshotsTest() override
    {
        Hand::rest();
        Tests::destroyNow(frame);
    }

    /// Shows a gallery of one page with one button.
    void show(const Array<Scene>& scenes)
    {
        Page page = allPages().front(); // a copy is not registered
        page.title = L"Only page";
        page.build = [](wxWindow* parent, const Log& /*log*/) {
            auto* button =
                new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Press", wxBitmap(), wxBitmap(), {},
                               Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
            button->SetSize(20, 20, 100, 30);
        };
        page.windows.clear();
        page.scenes = scenes;
        frame = new GalleryFrame(Array<Page>{page});
        frame->Show();
        frame->Raise();
        Tests::pumpEvents();
    }

    /// Takes all turns and returns the error.
    String run() const
    {
        Screenshots pictures(*frame, folder.path());
        for (;;) {
            const Optional<String> outcome = pictures.takeTurn();
            if (outcome)
                return *outcome;
            Tests::pumpEvents(10);
        }
    }

    bool exists(const wchar_t* name) const { return std::filesystem::exists(folder.file(name).native()); }

    Tests::DefaultSkinGuard guard;
    Tests::TemporaryFolder folder;
    GalleryFrame* frame = nullptr;
};

const auto IS_PRESSED =
    Hand::when<Wx::Button>(0, [](const Wx::Button& button) { return button.isPressed(); });

} // namespace

TEST_F(ScreenshotsTest, sceneAndRest_haveAPictureInEverySkin)
{
    show({{L"pressed", {Hand::moveTo(nth<Wx::Button>(0)), Hand::press(IS_PRESSED)}}});
    EXPECT_EQ(run(), L"");
    for (const wchar_t* name :
         {L"Only-page-Dark.png", L"Only-page-Paper.png", L"State-Only-page-at-rest-Dark.png",
          L"State-Only-page-pressed-Dark.png", L"State-Only-page-pressed-Paper.png"})
        EXPECT_TRUE(exists(name)) << String(name).toUtf8();
    EXPECT_FALSE(Hand::find<Wx::Button>(*frame->page(), 0)->isPressed()) << "the hand rests at the end";
}

TEST_F(ScreenshotsTest, stateThatIsNotReached_isAnErrorWithItsName)
{
    show({{L"pressed", {Hand::moveTo(nth<Wx::Button>(0), {0, 100}), Hand::press(IS_PRESSED)}}});
    EXPECT_EQ(run(), L"The state \"Only page pressed\" was not reached.");
    EXPECT_FALSE(exists(L"State-Only-page-pressed-Dark.png"));
}

} // namespace Nolvex::Gallery
