// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/ScreenQuestion.h"

#include "NolvexLibWx/detail/DeviceRegion.h"
#include "NolvexLibWx/detail/Displays.h"
#include "NolvexLibWx/platform/ScreenPixels.h"

#include <wx/app.h>

#include <cstddef>
#include <utility>

namespace Nolvex {

namespace {

using Platform::DesktopAnswer;
using Platform::DesktopPicture;
using Wx::Detail::ScreenQuestion;

constexpr std::size_t BYTES_PER_PIXEL = 4;

Array<ScreenQuestion*>& openQuestions()
{
    static Array<ScreenQuestion*> questions;
    return questions;
}

void passRows(DesktopPicture& picture, const Bucket& area, const Platform::TakeScreenRow& take)
{
    const Bucket known = area.intersected({{0, 0}, picture.size});
    if (known.isEmpty())
        return;
    for (std::int32_t y = known.min.y; y < known.max.y; ++y) {
        const std::size_t pixel = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.x) +
                                  static_cast<std::size_t>(known.min.x);
        take({known.min.x, y}, picture.bgrx.data() + pixel * BYTES_PER_PIXEL, known.width());
    }
}

} // namespace

Wx::Detail::Screen Wx::Detail::screenOfSystem()
{
    return {displayGeometries, Platform::isScreenReadable, Platform::screenScale, Platform::readScreenPixels,
            Platform::askDesktop};
}

std::shared_ptr<ScreenQuestion> Wx::Detail::ScreenQuestion::open(const Bucket& region,
                                                                 std::chrono::milliseconds limit, Done done,
                                                                 Screen screen)
{
    if (wxAppConsoleBase::GetInstance() == nullptr || !done)
        return nullptr;
    auto question = std::make_shared<ScreenQuestion>(region, std::move(done), std::move(screen));
    question->begin(limit);
    return question;
}

void Wx::Detail::ScreenQuestion::closeAll()
{
    while (!openQuestions().empty())
        openQuestions().back()->close();
}

Wx::Detail::ScreenQuestion::ScreenQuestion(const Bucket& region, Done done, Screen screen)
    : m_region(region), m_done(std::move(done)), m_screen(std::move(screen))
{
    openQuestions().push_back(this);
}

Wx::Detail::ScreenQuestion::~ScreenQuestion()
{
    close();
}

void Wx::Detail::ScreenQuestion::close()
{
    std::erase(openQuestions(), this);
    m_asked.reset();
    m_done = {};
}

void Wx::Detail::ScreenQuestion::begin(std::chrono::milliseconds limit)
{
    // The thread of the desktop's question must not own this object, which ends that thread.
    const std::weak_ptr<ScreenQuestion> self = weak_from_this();
    if (m_region.isEmpty() || m_screen.isReadable()) {
        answerLater(self, [](const ScreenQuestion& question) { return question.readScreen(); });
        return;
    }
    m_asked = m_screen.ask(limit, [self](DesktopAnswer answer) {
        const auto held = std::make_shared<DesktopAnswer>(std::move(answer));
        answerLater(self, [held](const ScreenQuestion& question) { return question.cutOut(*held); });
    });
    if (m_asked == nullptr)
        answerLater(self,
                    [](const ScreenQuestion&) { return Unexpected{ScreenCaptureFailure::UNAVAILABLE}; });
}

void Wx::Detail::ScreenQuestion::answerLater(std::weak_ptr<ScreenQuestion> question, Find find)
{
    wxTheApp->CallAfter([question = std::move(question), find = std::move(find)] {
        const std::shared_ptr<ScreenQuestion> asked = question.lock();
        if (!asked || !asked->isOpen())
            return;
        // wxWidgets processes pending events where nothing catches exceptions.
        try {
            asked->answer(find(*asked));
        } catch (...) {
            wxEvtHandler::WXConsumeException();
        }
    });
}

void Wx::Detail::ScreenQuestion::answer(ScreenCaptureResult result)
{
    // The function may withdraw this question or begin the next.
    const Done done = m_done;
    close();
    done(std::move(result));
}

Wx::ScreenCaptureResult Wx::Detail::ScreenQuestion::readScreen() const
{
    return composeDeviceRegion(m_region, m_screen.displays(), DeviceScale(m_screen.scale()), m_screen.read);
}

Wx::ScreenCaptureResult Wx::Detail::ScreenQuestion::cutOut(DesktopAnswer& answer) const
{
    if (!answer)
        return Unexpected{answer.error()};
    const Array<Bucket> displays = m_screen.displays();
    const Optional<DeviceScale> scale = DeviceScale::ofPicture(answer->size, displays);
    if (!scale)
        return Unexpected{ScreenCaptureFailure::FAILED};
    return composeDeviceRegion(m_region, displays, *scale,
                               [&answer](const Bucket& area, const Platform::TakeScreenRow& take) {
                                   passRows(*answer, area, take);
                               });
}

} // namespace Nolvex
