// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLibWx/widgets/TextCtrl.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/ViewerFrame.h"
#include "apps/viewer/view/ImageView.h"
#include "support/Events.h"
#include "support/Screen.h"
#include "support/TestData.h"

#include <wx/image.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <utility>

namespace Nolvex::Tests {

/// Makes a picture named "test", each pixel of which tells its own place: red is x and green is y, modulo
/// 256.
inline Viewer::SharedPicture coordinates(int width, int height)
{
    Expected<Image, String> image = Image::create(width, height, PixelFormat::UINT8_RGB, 1.0f);
    for (int y = 0; y < height; ++y) {
        std::byte* to = image->row(height - 1 - y).data();
        for (int x = 0; x < width; ++x) {
            *to++ = static_cast<std::byte>(x);
            *to++ = static_cast<std::byte>(y);
            *to++ = std::byte(99);
        }
    }
    return std::make_shared<const Viewer::Picture>(L"test", std::move(*image));
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

    void make(const Viewer::SharedPicture& picture)
    {
        // With a file the picture counts as saved, so that closing the window asks nothing.
        frame = new Viewer::ViewerFrame(picture, picture ? Io::Path(L"test") : Io::Path());
        view = findIn<Viewer::ImageView>(frame);
        log = findIn<Wx::TextCtrl>(frame);
    }

    wxString lastMessage() const { return log->GetValue().BeforeLast(L'\n').AfterLast(L'\n'); }

    void command(int id) const
    {
        wxCommandEvent event(wxEVT_MENU, id);
        frame->GetEventHandler()->ProcessEvent(event);
        pumpEvents(100);
        pumpUntil([this] { return !frame->isReading(); });
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
        const wxPoint corner = view->pictureArea().GetTopLeft();
        return pixelAt(captureClientArea(view), corner.x, corner.y);
    }

    /// Moves the mouse away, shows the window and waits until it is painted and, if a window manager
    /// activates windows at all, active.
    void show(const Viewer::SharedPicture& picture)
    {
        make(picture);
        frame->Show();
        frame->Raise();
        wxUIActionSimulator().MouseMove(5, 5);
        ASSERT_TRUE(pumpUntil([&] { return frame->wasPainted(); }));
        pumpUntil([&] { return frame->IsActive(); }, 500);
        pumpEvents(100);
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
