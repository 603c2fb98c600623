// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/BitmapImpl.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/ScreenCaptureFailure.h"

#include <chrono>
#include <memory>

namespace Nolvex::Wx {

namespace Detail {
class ScreenQuestion;
} // namespace Detail

using ScreenCaptureResult = Expected<BitmapImpl<Rgb>, ScreenCaptureFailure>;

/// Owns the question for a picture of the screen that requestScreenRegion has begun. The destruction of this
/// object withdraws the question: the desktop closes its dialog, and the caller's function is not called any
/// more.
///
/// An open question is also withdrawn when the library is stopped. The object may be destroyed later.
class NOLVEXLIBWX_EXPORT ScreenCaptureRequest
{
public:
    /// Makes a request that asks nothing.
    ScreenCaptureRequest();
    explicit ScreenCaptureRequest(std::shared_ptr<Detail::ScreenQuestion> question);
    ~ScreenCaptureRequest();

    ScreenCaptureRequest(ScreenCaptureRequest&& other) noexcept;
    /// Withdraws the question that this object has owned.
    ScreenCaptureRequest& operator=(ScreenCaptureRequest&& other) noexcept;

    /// True until the caller's function is called or the question is withdrawn.
    [[nodiscard]] bool isOpen() const;

    /// Withdraws the question.
    void cancel();

private:
    std::shared_ptr<Detail::ScreenQuestion> m_question;
};

/// Asks for the pixels that the screen shows inside the region, in the coordinates of wxDisplay, and calls
/// `done` once, from the event loop and never inside this call. Where programs may read the screen, the
/// picture is taken in the event loop and the limit has no meaning. On Wayland and under XWayland the
/// desktop portal is asked, and the portal may ask the user, which is why the limit should leave time for a
/// decision. When the limit has passed, the dialog is closed and the answer is TIMED_OUT.
///
/// Unlike the image of getScreenRegionColors, this image has the pixels of the device: on a desktop with a
/// scale of 2 each side is twice as long as the region's. If the displays have different scales, the largest
/// scale counts for the whole image. Row 0 is on top, pixels of displays have alpha 1, and pixels outside of
/// every display are transparent black. A region without pixels gives an empty image, without a question.
///
/// `done` may destroy the request, stop the event loop or begin another request. Exceptions of `done` reach
/// wxApp::OnExceptionInMainLoop. The returned request is not open if there is no application object or if
/// `done` is empty. Must be called on the GUI thread.
[[nodiscard]] NOLVEXLIBWX_EXPORT ScreenCaptureRequest
requestScreenRegion(Bucket region, std::chrono::milliseconds limit, Function<void(ScreenCaptureResult)> done);

} // namespace Nolvex::Wx
