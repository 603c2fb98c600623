// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewerFrame.h"

#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/program/WindowPicture.h"
#include "apps/viewer/ImageView.h"
#include "support/Events.h"
#include "support/Screen.h"

#include <wx/dcmemory.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;
using Viewer::ImageView;
using Viewer::ViewerFrame;

namespace {

// Every pixel tells where it is: red is x, green is y, modulo 256.
wxBitmap coordinates(int width, int height)
{
    wxImage image(width, height, false);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(x), static_cast<unsigned char>(y), 99);
    }
    return wxBitmap(image);
}

ImageView* viewOf(wxWindow* window)
{
    if (auto* view = dynamic_cast<ImageView*>(window))
        return view;
    for (wxWindow* child : window->GetChildren()) {
        if (ImageView* view = viewOf(child))
            return view;
    }
    return nullptr;
}

struct ViewerFrameTest : testing::Test
{
    ViewerFrame* frame = nullptr;
    ImageView* view = nullptr;

    void show(const wxBitmap& picture)
    {
        frame = new ViewerFrame(L"test", picture);
        view = viewOf(frame);
        frame->Show();
        ASSERT_TRUE(Tests::pumpUntil([&] { return frame->wasPainted(); }));
        Tests::pumpEvents(200);
    }

    ~ViewerFrameTest() override
    {
        if (frame != nullptr)
            Tests::destroyNow(frame);
    }
};

RgbBytes coordinate(int x, int y)
{
    return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 99};
}

} // namespace

TEST_F(ViewerFrameTest, smallPicture_standsInTheMiddle)
{
    show(coordinates(60, 40));
    const wxSize size = view->GetClientSize();
    const wxPoint origin((size.x - 60) / 2, (size.y - 40) / 2);
    const wxImage shown = Tests::captureClientArea(view);
    EXPECT_EQ(Tests::pixelAt(shown, origin.x, origin.y), coordinate(0, 0));
    EXPECT_EQ(Tests::pixelAt(shown, origin.x + 59, origin.y + 39), coordinate(59, 39));
    EXPECT_EQ(Tests::pixelAt(shown, origin.x - 1, origin.y), Wx::GuiSkin::DEFAULT().darkBackground);
    EXPECT_EQ(Tests::pixelAt(shown, origin.x, origin.y + 40), Wx::GuiSkin::DEFAULT().darkBackground);
}

TEST_F(ViewerFrameTest, largePicture_scrolls)
{
    show(coordinates(4000, 3000));
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), 0, 0), coordinate(0, 0));
    view->Scroll(40, 20);
    Tests::pumpEvents(200);
    int unit = 0;
    view->GetScrollPixelsPerUnit(&unit, nullptr);
    EXPECT_EQ(Tests::pixelAt(Tests::captureClientArea(view), 3, 5), coordinate(40 * unit + 3, 20 * unit + 5));
}

TEST_F(ViewerFrameTest, pictureWiderThanTheWindowSystemDraws_isShown)
{
    show(coordinates(40000, 20));
    const wxImage shown = Tests::captureClientArea(view);
    const int top = (view->GetClientSize().y - 20) / 2;
    EXPECT_EQ(Tests::pixelAt(shown, 7, top + 3), coordinate(7, 3));
}

TEST_F(ViewerFrameTest, picture_isFramedByTheBorder)
{
    show(coordinates(60, 40));
    wxWindow* border = view->GetParent();
    EXPECT_EQ(view->GetPosition(), wxPoint(2, 2));
    EXPECT_EQ(view->GetSize(), border->GetClientSize() - wxSize(4, 4));
    const wxImage shown = Tests::captureClientArea(border);
    EXPECT_EQ(Tests::pixelAt(shown, 0, 0), (RgbBytes{54, 54, 54}));
    EXPECT_EQ(Tests::pixelAt(shown, 5, shown.GetHeight() - 1), (RgbBytes{85, 85, 85}));
}

TEST_F(ViewerFrameTest, escape_closesTheWindow)
{
    show(coordinates(60, 40));
    frame->Raise();
    ASSERT_TRUE(Tests::pumpUntil([&] {
        view->SetFocus();
        return view->HasFocus();
    }));
    bool closed = false;
    frame->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent& event) {
        closed = closed || event.GetEventObject() == frame;
        event.Skip();
    });
    wxUIActionSimulator().Char(WXK_ESCAPE);
    EXPECT_TRUE(Tests::pumpUntil([&] { return closed; }));
    frame = nullptr;
}

TEST_F(ViewerFrameTest, windowPicture_holdsThePixelsOfTheScreen)
{
    show(coordinates(60, 40));
    const Io::Path file =
        Io::Path(std::filesystem::temp_directory_path()) / Io::Path(L"nolvex-window-picture.png");
    EXPECT_TRUE(Program::writeWindowPicture(*frame, file).isEmpty());
    wxImage picture;
    ASSERT_TRUE(picture.LoadFile(wxString(file.nativeStr().c_str())));
    EXPECT_EQ(picture.GetSize(), frame->GetClientSize());
    std::filesystem::remove(file.native());
    const Io::Path impossible = Io::Path(L"no/such/folder/picture.png");
    EXPECT_FALSE(Program::writeWindowPicture(*frame, impossible).isEmpty());
}
