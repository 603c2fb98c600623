// SPDX-License-Identifier: MIT
#include "apps/viewer/FileDropTarget.h"

#include "NolvexLibWx/StringConversions.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/arrstr.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

using namespace Nolvex;

namespace {

struct FileDropTargetTest : Tests::ViewerFixture
{
    Tests::TemporaryFolder folder;

    wxString grey(int number) const
    {
        const Io::Path file = folder.file(std::to_wstring(number) + L".pgm", "P5\n1 1\n255\nx");
        return Wx::toWxString(file.nativeStr());
    }

    bool drop(const wxArrayString& names) const
    {
        auto* const target = dynamic_cast<wxFileDropTarget*>(view->GetDropTarget());
        return target != nullptr && target->OnDropFiles(3, 4, names);
    }
};

} // namespace

TEST_F(FileDropTargetTest, droppedFiles_areToldInTheirOrder)
{
    Array<Io::Path> told;
    Viewer::FileDropTarget target([&](const Array<Io::Path>& files) { told = files; });
    wxArrayString names;
    names.push_back(L"/b \u00fc.png");
    names.push_back(L"/a.png");
    EXPECT_TRUE(target.OnDropFiles(0, 0, names));
    EXPECT_EQ(told, (Array<Io::Path>{Io::Path(L"/b \u00fc.png"), Io::Path(L"/a.png")}));
}

TEST_F(FileDropTargetTest, nothing_isRefused)
{
    int calls = 0;
    Viewer::FileDropTarget target([&](const Array<Io::Path>&) { ++calls; });
    EXPECT_FALSE(target.OnDropFiles(0, 0, {}));
    EXPECT_EQ(calls, 0);
}

TEST_F(FileDropTargetTest, function_mayDestroyTheTarget)
{
    std::unique_ptr<Viewer::FileDropTarget> target;
    const auto owned = std::make_shared<int>(1);
    target = std::make_unique<Viewer::FileDropTarget>([&target, owned](const Array<Io::Path>&) {
        target.reset();
        EXPECT_EQ(*owned, 1);
    });
    wxArrayString names;
    names.push_back(L"/a.png");
    EXPECT_TRUE(target->OnDropFiles(0, 0, names));
    EXPECT_EQ(target, nullptr);
}

TEST_F(FileDropTargetTest, thousandFiles_areListedAndTheFirstIsShown)
{
    show(Tests::coordinates(60, 40));
    wxArrayString names;
    for (int i = 0; i < 1000; ++i)
        names.push_back(grey(i));
    ASSERT_TRUE(drop(names));
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->isReading(); }));
    EXPECT_EQ(frame->workspace().pictures().size(), 1001U);
    EXPECT_EQ(frame->workspace().current()->name, L"0.pgm");
    ASSERT_TRUE(drop(names));
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->isReading(); }));
    EXPECT_EQ(frame->workspace().pictures().size(), 1001U) << "each of them once";
}

TEST_F(FileDropTargetTest, thousandFilesThatAreNone_leaveThePictureAndTheWindow)
{
    show(Tests::coordinates(60, 40));
    wxArrayString names;
    for (int i = 0; i < 1000; ++i)
        names.push_back(Wx::toWxString((folder.path() / (std::to_wstring(i) + L".png")).nativeStr()));
    ASSERT_TRUE(drop(names));
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->isReading(); }, 60'000));
    EXPECT_EQ(frame->workspace().pictures().size(), 1U);
    EXPECT_EQ(frame->workspace().current()->name, L"test");
}

TEST_F(FileDropTargetTest, droppedFolder_standsForItsPictures)
{
    show(Tests::coordinates(60, 40));
    grey(2);
    grey(1);
    folder.file(L"notes.txt", "no picture");
    wxArrayString names;
    names.push_back(Wx::toWxString(folder.path().nativeStr()));
    ASSERT_TRUE(drop(names));
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->isReading(); }));
    ASSERT_EQ(frame->workspace().pictures().size(), 3U);
    EXPECT_EQ(frame->workspace().current()->name, L"1.pgm");
    EXPECT_EQ(frame->workspace().pictures()[2].name, L"2.pgm");
}
