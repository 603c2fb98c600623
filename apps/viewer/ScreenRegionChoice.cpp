// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenRegionChoice.h"

#include "NolvexLibWx/Monitors.h"
#include "apps/viewer/ScreenOverlay.h"
#include "apps/viewer/platform/DisplayCover.h"

#include <wx/display.h>
#include <wx/frame.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// Returns the pixels of a picture of all displays that show one of them. The picture may have more pixels
// than wxWidgets counts on the screen.
wxRect partOfDisplay(const wxRect& display, const Pixel& picture)
{
    const Bucket desktop = Wx::getDesktopRegion();
    const double across = static_cast<double>(picture.x) / std::max(desktop.width(), 1);
    const double down = static_cast<double>(picture.y) / std::max(desktop.height(), 1);
    const auto rounded = [](double number) { return static_cast<int>(std::lround(number)); };
    const wxPoint first(rounded((display.x - desktop.min.x) * across),
                        rounded((display.y - desktop.min.y) * down));
    const wxPoint end(rounded((display.x + display.width - desktop.min.x) * across),
                      rounded((display.y + display.height - desktop.min.y) * down));
    return {first.x, first.y, std::max(end.x - first.x, 1), std::max(end.y - first.y, 1)};
}

} // namespace

ScreenRegionChoice::ScreenRegionChoice(wxWindow& owner, SharedPicture screen, Done done)
    : m_screen(std::move(screen)), m_done(std::move(done))
{
    showOverlays(owner);
}

ScreenRegionChoice::~ScreenRegionChoice()
{
    removeOverlays();
}

// The overlay over the window that asks comes last, and gets the focus.
void ScreenRegionChoice::showOverlays(wxWindow& owner)
{
    const int last = std::max(wxDisplay::GetFromWindow(&owner), 0);
    const int count = static_cast<int>(wxDisplay::GetCount());
    for (int i = 1; i <= count; ++i) {
        const auto display = static_cast<unsigned>((last + i) % count);
        auto* const frame = new wxFrame(&owner, wxID_ANY, L"Region of the screen", wxDefaultPosition,
                                        wxDefaultSize, wxFRAME_NO_TASKBAR | wxSTAY_ON_TOP | wxBORDER_NONE);
        // Otherwise the owner would get the keys first, and close at Escape.
        frame->SetExtraStyle(frame->GetExtraStyle() | wxWS_EX_BLOCK_EVENTS);
        const wxRect part = partOfDisplay(wxDisplay(display).GetGeometry(), m_screen->size());
        m_overlays.emplace_back(new ScreenOverlay(*frame, *this, part));
        Platform::showOverDisplay(*frame, display);
    }
    if (!m_overlays.empty())
        m_overlays.back()->SetFocus();
}

void ScreenRegionChoice::removeOverlays()
{
    for (const wxWeakRef<ScreenOverlay>& overlay : m_overlays) {
        if (overlay)
            overlay->remove();
    }
    m_overlays.clear();
}

void ScreenRegionChoice::setRegion(const Optional<wxRect>& region)
{
    m_region = region;
    for (const wxWeakRef<ScreenOverlay>& overlay : m_overlays) {
        if (overlay)
            overlay->showRegion();
    }
}

void ScreenRegionChoice::end(const Optional<wxRect>& region)
{
    removeOverlays();
    const Done done = std::exchange(m_done, nullptr);
    if (done)
        done(region);
}

Expected<SharedPicture, String> partOf(const Picture& picture, const wxRect& part)
{
    const ImageDescriptor& whole = picture.image().descriptor();
    Expected<Image, String> image = Image::create(part.width, part.height, whole.format, whole.gamma);
    if (!image)
        return Unexpected{image.error()};
    const std::size_t pixelBytes = Image::getPixelFormatByteCount(whole.format);
    // Images store the bottom row first.
    const int bottom = whole.height - part.y - part.height;
    for (int y = 0; y < part.height; ++y)
        std::memcpy(image->row(y).data(),
                    picture.image().row(bottom + y).data() + static_cast<std::size_t>(part.x) * pixelBytes,
                    image->rowBytes());
    return SharedPicture(std::make_shared<const Picture>(picture.name(), std::move(*image)));
}

} // namespace Nolvex::Viewer
