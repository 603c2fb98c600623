// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "NolvexLibWx/detail/ScreenRegion.h"
#include "NolvexLibWx/platform/DesktopQuestion.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace Nolvex::Wx::Detail {

/// What a question is put to: the system, or a test's own screen and desktop.
struct Screen
{
    using Ask = std::unique_ptr<Platform::DesktopQuestion>(std::chrono::milliseconds limit,
                                                           std::function<void(Platform::DesktopAnswer)> done);

    std::function<Array<Bucket>()> displays;
    /// Returns true if programs may read the screen.
    std::function<bool()> isReadable;
    /// Returns the number of the screen's pixels for a pixel of wxWidgets in each direction.
    std::function<std::int32_t()> scale;
    /// Reads the pixels of a screen that programs may read. Areas and rows are in the screen's own pixels.
    ReadScreen read;
    std::function<Ask> ask;
};

NOLVEXLIBWX_EXPORT Screen screenOfSystem();

/// A question for a picture of the screen, from the call of requestScreenRegion to the answer.
class NOLVEXLIBWX_EXPORT ScreenQuestion : public std::enable_shared_from_this<ScreenQuestion>,
                                          private Noncopyable
{
public:
    using Done = Function<void(ScreenCaptureResult)>;

    /// Returns null if there is no application object, which would have to deliver the answer, or if `done`
    /// is empty.
    static std::shared_ptr<ScreenQuestion> open(const Bucket& region, std::chrono::milliseconds limit,
                                                Done done, Screen screen);

    /// Withdraws all open questions, because the library is being stopped.
    static void closeAll();

    ScreenQuestion(const Bucket& region, Done done, Screen screen);
    ~ScreenQuestion();

    bool isOpen() const { return static_cast<bool>(m_done); }

    void close();

private:
    using Find = std::function<ScreenCaptureResult(const ScreenQuestion&)>;

    void begin(std::chrono::milliseconds limit);
    /// Lets the event loop find the answer, unless the question is withdrawn before. Every thread may call
    /// this function.
    static void answerLater(std::weak_ptr<ScreenQuestion> question, Find find);
    void answer(ScreenCaptureResult result);
    ScreenCaptureResult readScreen() const;
    ScreenCaptureResult cutOut(Platform::DesktopAnswer& answer) const;

    const Bucket m_region;
    Done m_done;
    const Screen m_screen;
    std::unique_ptr<Platform::DesktopQuestion> m_asked;
};

} // namespace Nolvex::Wx::Detail
