// SPDX-License-Identifier: MIT
#include "NolvexLibWx/ScreenCaptureRequest.h"

#include "NolvexLibWx/detail/ScreenQuestion.h"

#include <utility>

namespace Nolvex {

Wx::ScreenCaptureRequest::ScreenCaptureRequest() = default;

Wx::ScreenCaptureRequest::ScreenCaptureRequest(std::shared_ptr<Detail::ScreenQuestion> question)
    : m_question(std::move(question))
{}

Wx::ScreenCaptureRequest::~ScreenCaptureRequest()
{
    cancel();
}

Wx::ScreenCaptureRequest::ScreenCaptureRequest(ScreenCaptureRequest&& other) noexcept = default;

Wx::ScreenCaptureRequest& Wx::ScreenCaptureRequest::operator=(ScreenCaptureRequest&& other) noexcept
{
    if (this != &other) {
        cancel();
        m_question = std::move(other.m_question);
    }
    return *this;
}

bool Wx::ScreenCaptureRequest::isOpen() const
{
    return m_question != nullptr && m_question->isOpen();
}

void Wx::ScreenCaptureRequest::cancel()
{
    if (const std::shared_ptr<Detail::ScreenQuestion> question = std::exchange(m_question, nullptr))
        question->close();
}

Wx::ScreenCaptureRequest Wx::requestScreenRegion(Bucket region, std::chrono::milliseconds limit,
                                                 Function<void(ScreenCaptureResult)> done)
{
    return ScreenCaptureRequest(
        Detail::ScreenQuestion::open(region, limit, std::move(done), Detail::screenOfSystem()));
}

} // namespace Nolvex
