// SPDX-License-Identifier: MIT
#include "support/RandomWalk.h"

#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/Skins.h"
#include "support/DefaultSkinGuard.h"
#include "support/Events.h"

#include <wx/modalhook.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Gallery::GalleryFrame;

namespace {

/// Cancels every dialog before it is shown, since the walk would never end it.
struct DialogCanceller : wxModalDialogHook
{
    DialogCanceller() { Register(); }

protected:
    int Enter(wxDialog* /*dialog*/) override { return wxID_CANCEL; }
};

struct GalleryRandomWalkTest : testing::TestWithParam<unsigned>
{
    Tests::DefaultSkinGuard guard;
    DialogCanceller canceller;
    GalleryFrame* frame = new GalleryFrame;

    ~GalleryRandomWalkTest() override
    {
        Tests::destroyNow(frame);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    }
};

/// A click on it would open the browser.
bool opensTheBrowser(const wxWindow* window)
{
    return window->GetLabel().Contains(L"browser");
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Seeds, GalleryRandomWalkTest, testing::Values(1U, 2U, 3U));

TEST_P(GalleryRandomWalkTest, anythingDone_leavesNoMouseHeldAndNoPopupShown)
{
    frame->Show();
    frame->Raise();
    Tests::pumpUntil([&] { return frame->IsActive(); }, 1000);
    Tests::RandomWalk user(frame, GetParam());
    user.avoid(opensTheBrowser);
    const int pages = static_cast<int>(frame->pages().size());
    const auto turnPage = [&] { frame->showPage(static_cast<std::size_t>(user.number(pages))); };
    user.addAction("page", turnPage);
    user.addAction("skin", [&] { frame->chooseSkin(user.number(Gallery::SKIN_COUNT)); });
    // Each walk begins elsewhere.
    turnPage();
    user.walk(60);
    if (HasFailure())
        ADD_FAILURE() << "seed " << GetParam() << ", after the steps: " << user.lastSteps();
}
