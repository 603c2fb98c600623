// SPDX-License-Identifier: MIT
// Compares pictures in the viewer's window.
#include "apps/viewer/inspection/ComparisonTool.h"

#include "apps/viewer/inspection/InformationPanel.h"
#include "support/ViewerFixture.h"

#include <wx/app.h>
#include <wx/menu.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpUntil;
using Viewer::PictureId;

namespace {

struct ComparisonToolTest : Tests::ViewerFixture
{
    PictureId first{};
    PictureId second{};

    // Shows two pictures of the same size, the first of which is the reference.
    void showTwo()
    {
        show(coordinates(60, 40)->named(L"first"));
        first = frame->workspace().current()->id;
        command(Viewer::SET_REFERENCE);
        Image image = coordinates(60, 40)->image();
        std::memset(image.row(0).data(), 0, image.rowBytes());
        second = frame->workspace().add(Io::Path(L"second"),
                                        std::make_shared<const Viewer::Picture>(L"second", std::move(image)));
        frame->workspace().setCurrent(second);
    }

    String shownName() const { return view->picture()->name(); }

    bool isChecked(Viewer::Command id) const { return frame->GetMenuBar()->IsChecked(id); }
};

} // namespace

TEST_F(ComparisonToolTest, withoutAReference_tellsWhatToDo)
{
    show(coordinates(60, 40));
    command(Viewer::COMPARE_ABSOLUTE);
    EXPECT_TRUE(lastMessage().Contains(L"Ctrl+R")) << lastMessage();
    EXPECT_TRUE(frame->isLogShown());
    EXPECT_TRUE(isChecked(Viewer::COMPARE_NOTHING));
    command(Viewer::FLIP);
    EXPECT_EQ(shownName(), L"test");
}

TEST_F(ComparisonToolTest, difference_isShownAndMeasured)
{
    showTwo();
    command(Viewer::COMPARE_ABSOLUTE);
    ASSERT_TRUE(pumpUntil([&] { return shownName() == L"second \u2212 first"; }));
    EXPECT_TRUE(lastMessage().Contains(L"PSNR")) << lastMessage();
    // The bottom row is black in the second picture: x, 39 and 99 are missing there.
    const Rgb missing = view->picture()->image().getRgba(30, 0);
    EXPECT_FLOAT_EQ(missing.r, 30 / 255.0f);
    EXPECT_FLOAT_EQ(missing.g, 39 / 255.0f);
    EXPECT_EQ(view->picture()->image().getRgba(30, 1).r, 0.0f);
    command(Viewer::COMPARE_NOTHING);
    EXPECT_EQ(shownName(), L"second");
}

TEST_F(ComparisonToolTest, mode_staysForTheNextPictureAndTheReferenceItselfIsShownAsItIs)
{
    showTwo();
    command(Viewer::COMPARE_DIFFERENCE);
    ASSERT_TRUE(pumpUntil([&] { return shownName() == L"second \u2212 first"; }));
    frame->workspace().setCurrent(first);
    Tests::pumpEvents(100);
    EXPECT_EQ(shownName(), L"first");
    frame->workspace().setCurrent(second);
    EXPECT_TRUE(pumpUntil([&] { return shownName() == L"second \u2212 first"; }));
    EXPECT_TRUE(isChecked(Viewer::COMPARE_DIFFERENCE));
}

TEST_F(ComparisonToolTest, flip_showsTheReferenceAndThePictureAgain)
{
    showTwo();
    command(Viewer::FLIP);
    EXPECT_EQ(shownName(), L"first");
    command(Viewer::FLIP);
    EXPECT_EQ(shownName(), L"second");
}

TEST_F(ComparisonToolTest, flip_keepsScaleAndPlace)
{
    showTwo();
    view->setScale(4.0);
    const wxRect area = view->pictureArea();
    command(Viewer::FLIP);
    EXPECT_EQ(view->scale(), 4.0);
    EXPECT_EQ(view->pictureArea(), area);
}

TEST_F(ComparisonToolTest, sideBySide_showsTheReferenceBehindTheDivider)
{
    showTwo();
    command(Viewer::COMPARE_SIDE_BY_SIDE);
    EXPECT_EQ(shownName(), L"second");
    ASSERT_NE(view->comparison(), nullptr);
    EXPECT_EQ(view->comparison()->name(), L"first");
    command(Viewer::COMPARE_NOTHING);
    EXPECT_EQ(view->comparison(), nullptr);
}

TEST_F(ComparisonToolTest, closedReference_endsTheComparison)
{
    showTwo();
    command(Viewer::COMPARE_SIDE_BY_SIDE);
    frame->workspace().close(first);
    EXPECT_EQ(view->comparison(), nullptr);
    EXPECT_TRUE(isChecked(Viewer::COMPARE_NOTHING));
}

TEST_F(ComparisonToolTest, closedWhileTheDifferenceIsMeasured_isGoneWithoutHarm)
{
    showTwo();
    wxCommandEvent event(wxEVT_MENU, Viewer::COMPARE_SQUARED);
    frame->GetEventHandler()->ProcessEvent(event);
    Tests::destroyNow(frame);
    frame = nullptr;
    Tests::pumpEvents(100);
}

TEST_F(ComparisonToolTest, changedReference_isComparedAnew)
{
    showTwo();
    command(Viewer::COMPARE_ABSOLUTE);
    ASSERT_TRUE(pumpUntil([&] { return shownName() == L"second \u2212 first"; }));
    frame->workspace().setPicture(first, frame->workspace().currentPicture()->named(L"first"));
    ASSERT_TRUE(pumpUntil([&] { return lastMessage().Contains(L"PSNR inf"); })) << lastMessage();
}

TEST_F(ComparisonToolTest, pictureThatChangesFasterThanItIsMeasured_isMeasuredAllTheSame)
{
    showTwo();
    command(Viewer::COMPARE_NOTHING);
    wxCommandEvent event(wxEVT_MENU, Viewer::COMPARE_ABSOLUTE);
    frame->GetEventHandler()->ProcessEvent(event);
    const auto changeSecond = [this](std::byte value) {
        Image image = *Image::create(60, 40, PixelFormat::UINT8_RGB, 1.0f);
        for (int y = 0; y < 40; ++y)
            std::memset(image.row(y).data(), std::to_integer<int>(value), image.rowBytes());
        frame->workspace().setPicture(second,
                                      std::make_shared<const Viewer::Picture>(L"second", std::move(image)));
    };
    bool isMeasured = false;
    for (int i = 0; i < 20; ++i) {
        // The last state has been measured by now, and the next one comes before that is told.
        wxMilliSleep(20);
        changeSecond(std::byte(i));
        wxTheApp->ProcessPendingEvents();
        EXPECT_TRUE(!isMeasured || shownName() == L"second \u2212 first") << "the difference flickers";
        isMeasured = shownName() == L"second \u2212 first";
    }
    EXPECT_TRUE(isMeasured);
    changeSecond(std::byte(255));
    EXPECT_TRUE(pumpUntil([this] { return view->picture()->image().getRgba(0, 39).r == 1.0f; }))
        << "the last state is measured, too";
}

TEST_F(ComparisonToolTest, arrivingPicture_isToldOnceInTheLog)
{
    show(coordinates(60, 40)->named(L"first"));
    command(Viewer::SET_REFERENCE);
    Viewer::Workspace& workspace = frame->workspace();
    const PictureId id =
        workspace.add({}, coordinates(60, 40)->named(L"render"), Viewer::PictureOrigin::SENDER);
    workspace.setCurrent(id);
    command(Viewer::COMPARE_ABSOLUTE);
    ASSERT_TRUE(pumpUntil([this] { return lastMessage().Contains(L"PSNR inf"); }));
    workspace.setPicture(id, Tests::coordinates(60, 39)->named(L"render"));
    ASSERT_TRUE(pumpUntil([this] { return view->picture()->size().y == 39; }));
    const wxString text = log->GetValue();
    EXPECT_EQ(text.Find(L"PSNR"), int(text.rfind(L"PSNR")));
}

TEST_F(ComparisonToolTest, information_tellsTheNumbers)
{
    showTwo();
    command(Viewer::SHOW_INFORMATION);
    command(Viewer::COMPARE_ABSOLUTE);
    auto* const panel = Tests::findIn<Viewer::InformationPanel>(frame);
    EXPECT_TRUE(pumpUntil([&] {
        return panel->text().find(L"PSNR") != String::NPOS &&
               panel->text().find(L"NaN pixels: 0") != String::NPOS;
    })) << panel->text().toUtf8();
    command(Viewer::COMPARE_NOTHING);
    EXPECT_EQ(panel->text().find(L"PSNR"), String::NPOS);
}
