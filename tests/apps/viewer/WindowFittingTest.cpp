// SPDX-License-Identifier: MIT
// Begins with pictures while the window is there already, as the viewer does with those of the command line.
#include "apps/viewer/WindowFitting.h"

#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <wx/fileconf.h>
#include <wx/listbox.h>
#include <wx/sstream.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Nolvex;

namespace {

struct WindowFittingTest : Tests::ViewerFixture
{
    Tests::TemporaryFolder folder;

    Io::Path greyPicture(const std::wstring& name, int width, int height) const
    {
        return folder.file(
            name,
            "P5\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n" +
                std::string(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), '\x55'));
    }

    void begin(const Array<Io::Path>& files) const
    {
        frame->beginWith(files);
        ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->isReading(); }));
    }

    bool isFitting(const wxSize& picture) const
    {
        return Tests::pumpUntil([&] {
            return view->scale() == 1.0 && view->pictureArea().GetSize() == picture &&
                   wxRect(view->GetClientSize()).Contains(view->pictureArea());
        });
    }
};

} // namespace

TEST_F(WindowFittingTest, firstPicture_givesAHiddenWindowItsSize)
{
    make(nullptr);
    begin({greyPicture(L"a.pgm", 700, 450)});
    EXPECT_TRUE(isFitting({700, 450}));
}

TEST_F(WindowFittingTest, firstPicture_givesAShownWindowItsSizeAboutTheSameMiddle)
{
    show(nullptr);
    const wxRect before = frame->GetScreenRect();
    begin({greyPicture(L"a.pgm", 700, 450)});
    EXPECT_TRUE(isFitting({700, 450}));
    const wxRect after = frame->GetScreenRect();
    EXPECT_NEAR(before.x + before.width / 2, after.x + after.width / 2, 4);
    EXPECT_NEAR(before.y + before.height / 2, after.y + after.height / 2, 30) << "less the title bar";
}

TEST_F(WindowFittingTest, secondPicture_leavesTheSize)
{
    show(nullptr);
    begin({greyPicture(L"a.pgm", 500, 300)});
    ASSERT_TRUE(isFitting({500, 300}));
    const wxSize size = view->GetClientSize();
    ASSERT_TRUE(frame->openPicture(greyPicture(L"b.pgm", 900, 600)));
    Tests::pumpUntilStable([&] { return view->picture()->size().x == 900; }, 100);
    EXPECT_EQ(view->GetClientSize(), size);
    EXPECT_LT(view->scale(), 1.0);
}

TEST_F(WindowFittingTest, severalPictures_leaveRoomForTheirList)
{
    make(nullptr);
    begin({greyPicture(L"a.pgm", 600, 400), greyPicture(L"b.pgm", 60, 40)});
    EXPECT_TRUE(isFitting({600, 400}));
    EXPECT_TRUE(Tests::findIn<wxListBox>(frame)->IsShownOnScreen() || !frame->IsShown());
    EXPECT_EQ(frame->workspace().pictures().size(), 2U);
}

TEST_F(WindowFittingTest, windowThatTheUserHasMadeWider_keepsItsSize)
{
    show(nullptr);
    frame->beginWith({});
    const wxSize wider = frame->GetClientSize() + wxSize(50, 20);
    frame->SetClientSize(wider);
    ASSERT_TRUE(Tests::pumpUntilStable([&] { return frame->GetClientSize() == wider; }, 100));
    ASSERT_TRUE(frame->openPicture(greyPicture(L"a.pgm", 700, 450)));
    Tests::pumpEvents(200);
    EXPECT_EQ(frame->GetClientSize(), wider);
}

TEST_F(WindowFittingTest, rememberedPlace_isKept)
{
    wxStringInputStream remembered("[window]\nx=60\ny=70\nwidth=740\nheight=560\n");
    frame = new Viewer::ViewerFrame(nullptr, {}, Wx::requestScreenRegion,
                                    std::make_shared<wxFileConfig>(remembered));
    view = Tests::findIn<Viewer::ImageView>(frame);
    ASSERT_EQ(frame->GetSize(), wxSize(740, 560));
    begin({greyPicture(L"a.pgm", 600, 350)});
    EXPECT_EQ(frame->GetSize(), wxSize(740, 560));
}

TEST_F(WindowFittingTest, fileThatCannotBeRead_isToldAndTheNextOneIsShown)
{
    make(nullptr);
    Array<String> complaints;
    frame->onComplaint = [&](const String& message) { complaints.push_back(message); };
    begin({folder.file(L"missing.png"), greyPicture(L"a.pgm", 700, 450)});
    EXPECT_TRUE(isFitting({700, 450}));
    EXPECT_TRUE(frame->isLogShown());
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_NE(complaints[0].find(L"missing.png"), String::NPOS);
}

TEST_F(WindowFittingTest, folderWithoutPictures_isTold)
{
    make(nullptr);
    begin({folder.path()});
    EXPECT_TRUE(lastMessage().StartsWith(L"There are no pictures in \"")) << lastMessage();
    EXPECT_TRUE(frame->isLogShown());
}
