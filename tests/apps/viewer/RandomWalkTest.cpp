// SPDX-License-Identifier: MIT
#include "support/RandomWalk.h"

#include "NolvexLib/Array.h"
#include "apps/viewer/Command.h"
#include "support/ViewerFixture.h"

#include <string>

using namespace Nolvex;
using Viewer::CommandInfo;

namespace {

constexpr int STEPS = 50;

struct ViewerRandomWalkTest : Tests::ViewerFixture, testing::WithParamInterface<unsigned>
{
    Array<int> commands;

    /// Finds the commands that the walk may take, and takes the others from the window: a dialog would wait
    /// for an answer, and a picture of the screen is not given up without a question.
    void chooseCommands()
    {
        for (const CommandInfo& info : Viewer::commandTable()) {
            if (isTaken(info))
                commands.push_back(info.command);
            else
                frame->Bind(
                    wxEVT_MENU, [](wxCommandEvent&) {}, info.command);
        }
    }

    static bool isTaken(const CommandInfo& info)
    {
        // As in most programs, three dots stand behind the names of commands that open a dialog.
        const bool opensDialog = wxString(info.label).EndsWith(L"...");
        return !opensDialog && info.command != Viewer::CLOSE && info.command != Viewer::CAPTURE_SCREEN;
    }

    void addActions(Tests::RandomWalk& user)
    {
        for (int i = 0; i < 3; ++i)
            user.addAction("command", [&] { runAny(user); });
        user.addAction("picture", [&] {
            frame->openPicture(Tests::testPicture(user.number(2) == 0 ? L"pattern.png" : L"noimage.txt"));
        });
    }

    void runAny(Tests::RandomWalk& user) const
    {
        wxCommandEvent event(
            wxEVT_MENU, commands[static_cast<std::size_t>(user.number(static_cast<int>(commands.size())))]);
        frame->ProcessWindowEvent(event);
    }
};

// The name of a test tells its seed even if the walk crashes.
std::string nameOf(const testing::TestParamInfo<unsigned>& info)
{
    return "Seed" + std::to_string(info.param);
}

} // namespace

// These walks press more controls than most: a control that keeps the mouse fails both.
INSTANTIATE_TEST_SUITE_P(Seeds, ViewerRandomWalkTest, testing::Values(8U, 9U), nameOf);

TEST_P(ViewerRandomWalkTest, anythingDone_leavesNoMouseHeldAndNoPopupShown)
{
    show(Tests::coordinates(300, 200));
    chooseCommands();
    ASSERT_GE(commands.size(), 4u);
    Tests::RandomWalk user(frame, GetParam());
    addActions(user);
    user.walk(STEPS);
    if (HasFailure())
        ADD_FAILURE() << "seed " << GetParam() << ", after the steps: " << user.lastSteps();
}
