// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "apps/viewer/Picture.h"

#include <wx/timer.h>

#include <chrono>
#include <functional>

namespace Nolvex::Viewer {

/// Asks for the screen as Wx::requestScreenRegion does. A test has a screen of its own.
using AskForScreen = std::function<Wx::ScreenCaptureRequest(Bucket region, std::chrono::milliseconds limit,
                                                            Function<void(Wx::ScreenCaptureResult)> done)>;

/// Returns what the user is told about the failure.
String messageOf(Wx::ScreenCaptureFailure failure);

/// Takes a picture of all displays, each in its place. The picture is transparent where no display is. The
/// desktop may ask the user first, and the window can be used meanwhile. The destructor withdraws the
/// question.
class ScreenCaptureCommand : private Noncopyable
{
public:
    /// The error is a text for the user.
    using Result = Expected<SharedPicture, String>;
    using Done = std::function<void(const Result& result)>;

    /// `done` is called from the event loop and may destroy this object.
    ScreenCaptureCommand(AskForScreen ask, Done done);

    /// Does nothing while the answer to an earlier question is missing.
    void start();

    /// Starts a moment later, when the menu has left the screen.
    void startSoon();

    void cancel();

    bool isRunning() const { return m_timer.IsRunning() || m_request.isOpen(); }

private:
    void finish(const Wx::ScreenCaptureResult& captured) const;

    AskForScreen m_ask;
    Done m_done;
    wxTimer m_timer;
    Wx::ScreenCaptureRequest m_request;
};

} // namespace Nolvex::Viewer
