// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/ScreenCapture.h"
#include "support/Events.h"

#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/image.h>

namespace Nolvex::Tests {

inline Rgb fromBytes(int r, int g, int b)
{
    constexpr float SCALE = 1.0f / 255.0f;
    return {static_cast<float>(r) * SCALE, static_cast<float>(g) * SCALE, static_cast<float>(b) * SCALE,
            1.0f};
}

/// Returns a picture whose pixels all differ, and in which every value of a byte occurs.
inline wxImage patternPicture(wxSize size, int seed)
{
    wxImage image(size);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>((x + seed) % 256),
                         static_cast<unsigned char>((y * 3 + seed) % 256),
                         static_cast<unsigned char>((x * 5 + y * 11) % 256));
    }
    return image;
}

/// A window without a frame, on top of the others, that shows each pixel of a picture as a pixel of the
/// screen.
class PictureWindow
{
public:
    explicit PictureWindow(wxSize size, wxPoint corner = {90, 80})
        : m_frame(new wxFrame(nullptr, wxID_ANY, "picture", corner, wxDefaultSize,
                              wxBORDER_NONE | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR))
    {
        m_frame->SetClientSize(size);
        m_frame->SetBackgroundStyle(wxBG_STYLE_PAINT);
        m_frame->Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(m_frame);
            if (m_picture.IsOk())
                dc.DrawBitmap(wxBitmap(m_picture, 24), 0, 0);
        });
        m_frame->Show();
        m_frame->Raise();
    }

    ~PictureWindow() { destroyNow(m_frame); }

    PictureWindow(const PictureWindow&) = delete;
    PictureWindow& operator=(const PictureWindow&) = delete;

    void show(const wxImage& picture)
    {
        m_picture = picture;
        m_frame->Refresh();
    }

    wxFrame* frame() const { return m_frame; }

    /// Returns the place of the picture on the screen.
    Bucket region() const
    {
        return Wx::toBucket(wxRect(m_frame->ClientToScreen(wxPoint(0, 0)), m_picture.GetSize()));
    }

    /// Processes events until the capture of the window shows the picture. Returns false if it never does.
    bool isSeen() const
    {
        return pumpUntil([this] { return Wx::getScreenRegionColors(region()) == expectedColours(); });
    }

    BitmapImpl<Rgb> expectedColours() const
    {
        BitmapImpl<Rgb> colours(m_picture.GetWidth(), m_picture.GetHeight());
        for (int y = 0; y < colours.height(); ++y) {
            for (int x = 0; x < colours.width(); ++x)
                colours.at(x, y) =
                    fromBytes(m_picture.GetRed(x, y), m_picture.GetGreen(x, y), m_picture.GetBlue(x, y));
        }
        return colours;
    }

private:
    wxFrame* m_frame;
    wxImage m_picture;
};

} // namespace Nolvex::Tests
