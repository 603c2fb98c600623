// SPDX-License-Identifier: MIT
#include "apps/viewer/ScreenCaptureCommand.h"

#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibWx/Monitors.h"

#include <memory>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using namespace std::chrono_literals;
using Wx::ScreenCaptureFailure;

constexpr int MENU_TIME_MS = 250;

// The user may have to read and answer a question of the desktop.
constexpr auto DECISION_TIME = 1min;

// Bytes lose nothing here, since the screen has bytes, too. An image stores its bottom row first.
Expected<Image, String> toImage(const BitmapImpl<Rgb>& captured)
{
    Expected<Image, String> image =
        Image::create(captured.width(), captured.height(), PixelFormat::UINT8_RGBA, 1.0f);
    for (std::int32_t y = 0; image && y < captured.height(); ++y)
        Pixels::rgbToRgba8(captured.row(captured.height() - 1 - y),
                           reinterpret_cast<std::uint8_t*>(image->row(y).data()),
                           static_cast<std::size_t>(captured.width()));
    return image;
}

Unexpected<String> refuse(ScreenCaptureFailure failure)
{
    return {messageOf(failure)};
}

ScreenCaptureCommand::Result toPicture(const Wx::ScreenCaptureResult& captured)
{
    if (!captured)
        return refuse(captured.error());
    if (captured->isEmpty())
        return refuse(ScreenCaptureFailure::UNAVAILABLE); // there is no display
    Expected<Image, String> image = toImage(*captured);
    if (!image)
        return refuse(ScreenCaptureFailure::TOO_LARGE);
    return std::make_shared<const Picture>(L"Unsaved picture of the screen", std::move(*image));
}

} // namespace

String messageOf(ScreenCaptureFailure failure)
{
    switch (failure) {
    case ScreenCaptureFailure::REFUSED:
        return L"The picture of the screen was not allowed.";
    case ScreenCaptureFailure::UNAVAILABLE:
        return L"The screen cannot be read.";
    case ScreenCaptureFailure::TIMED_OUT:
        static_assert(DECISION_TIME == 1min, "the message names the time");
        return L"The desktop gave no picture of the screen within a minute.";
    case ScreenCaptureFailure::TOO_LARGE:
        return L"The picture of the screen is too large.";
    case ScreenCaptureFailure::FAILED:
        break;
    }
    return L"The desktop gave no picture of the screen. Its settings may not allow this program to take one.";
}

ScreenCaptureCommand::ScreenCaptureCommand(AskForScreen ask, Done done)
    : m_ask(std::move(ask)), m_done(std::move(done))
{
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { start(); });
}

void ScreenCaptureCommand::start()
{
    m_timer.Stop();
    if (m_request.isOpen())
        return;
    m_request = m_ask(Wx::getDesktopRegion(), DECISION_TIME,
                      [this](const Wx::ScreenCaptureResult& captured) { finish(captured); });
}

void ScreenCaptureCommand::startSoon()
{
    if (!isRunning())
        m_timer.StartOnce(MENU_TIME_MS);
}

void ScreenCaptureCommand::cancel()
{
    m_timer.Stop();
    m_request.cancel();
}

void ScreenCaptureCommand::finish(const Wx::ScreenCaptureResult& captured) const
{
    const Done done = m_done;
    done(toPicture(captured));
}

} // namespace Nolvex::Viewer
