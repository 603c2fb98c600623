// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/viewer/ImageView.h"
#include "apps/viewer/ViewerFrame.h"
#include "support/Events.h"
#include "support/Screen.h"
#include "support/TestData.h"

#include <wx/image.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace Nolvex::Tests {

/// Every pixel tells where it is: red is x, green is y, modulo 256.
inline wxBitmap coordinates(int width, int height)
{
    wxImage image(width, height, false);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(x), static_cast<unsigned char>(y), 99);
    }
    return wxBitmap(image);
}

template<class Wanted>
Wanted* findIn(wxWindow* window)
{
    if (auto* found = dynamic_cast<Wanted*>(window))
        return found;
    for (wxWindow* child : window->GetChildren()) {
        if (Wanted* found = findIn<Wanted>(child))
            return found;
    }
    return nullptr;
}

inline Io::Path testPicture(const wchar_t* name)
{
    return Io::Path(testData() / "images" / name);
}

struct ViewerFixture : testing::Test
{
    Viewer::ViewerFrame* frame = nullptr;
    Viewer::ImageView* view = nullptr;
    Wx::TextCtrl* log = nullptr;

    void make(const wxBitmap& picture)
    {
        frame = new Viewer::ViewerFrame(L"test", picture);
        view = findIn<Viewer::ImageView>(frame);
        log = findIn<Wx::TextCtrl>(frame);
    }

    wxString lastMessage() const { return log->GetValue().BeforeLast(L'\n').AfterLast(L'\n'); }

    void command(int id) const
    {
        wxCommandEvent event(wxEVT_MENU, id);
        frame->GetEventHandler()->ProcessEvent(event);
        pumpEvents(100);
    }

    void focus(wxWindow* window) const
    {
        frame->Raise();
        ASSERT_TRUE(pumpUntil([&] {
            window->SetFocus();
            return window->HasFocus();
        }));
        pumpEvents(100);
    }

    RgbBytes shownAtTheCorner() const
    {
        pumpEvents(100);
        const wxSize room = view->GetClientSize() - view->bitmap().GetSize();
        return pixelAt(captureClientArea(view), room.x / 2, room.y / 2);
    }

    void show(const wxBitmap& picture)
    {
        make(picture);
        frame->Show();
        ASSERT_TRUE(pumpUntil([&] { return frame->wasPainted(); }));
        pumpEvents(200);
    }

    ~ViewerFixture() override
    {
        if (frame != nullptr)
            destroyNow(frame);
    }
};

inline RgbBytes coordinate(int x, int y)
{
    return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 99};
}

} // namespace Nolvex::Tests
