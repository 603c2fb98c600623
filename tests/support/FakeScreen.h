// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Bucket.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "NolvexLibWx/detail/ScreenQuestion.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace Nolvex::Tests {

/// A screen that programs may read or not, and a desktop that lets the test decide about the answer to a
/// question. Notes what happens to the questions.
struct FakeScreen : private Noncopyable
{
    bool isReadable = false;
    bool isRead = true; ///< False if reading gives no pixel.
    bool isDesktopThere = true;
    std::int32_t scale = 1;
    Array<Bucket> displays{{{0, 0}, {40, 30}}};

    int asked = 0;
    int withdrawn = 0;
    std::chrono::milliseconds limit{0};
    std::function<void(Platform::DesktopAnswer)> answer; ///< Answers the last question.
    std::thread::id readBy;

    Wx::Detail::Screen screen()
    {
        Wx::Detail::Screen screen;
        screen.displays = [this] { return displays; };
        screen.isReadable = [this] { return isReadable; };
        screen.scale = [this] { return scale; };
        screen.read = [this](const Bucket& area, const Platform::TakeScreenRow& take) { read(area, take); };
        screen.ask = [this](std::chrono::milliseconds wanted, auto done) {
            return ask(wanted, std::move(done));
        };
        return screen;
    }

    Wx::ScreenCaptureRequest request(const Bucket& region, std::chrono::milliseconds wanted,
                                     Function<void(Wx::ScreenCaptureResult)> done)
    {
        return Wx::ScreenCaptureRequest(
            Wx::Detail::ScreenQuestion::open(region, wanted, std::move(done), screen()));
    }

private:
    class Question : public Platform::DesktopQuestion
    {
    public:
        explicit Question(FakeScreen& screen) : m_screen(screen) {}

        ~Question() override { ++m_screen.withdrawn; }

    private:
        FakeScreen& m_screen;
    };

    std::unique_ptr<Platform::DesktopQuestion> ask(std::chrono::milliseconds wanted,
                                                   std::function<void(Platform::DesktopAnswer)> done)
    {
        ++asked;
        limit = wanted;
        answer = std::move(done);
        return isDesktopThere ? std::make_unique<Question>(*this) : nullptr;
    }

    void read(const Bucket& area, const Platform::TakeScreenRow& take)
    {
        readBy = std::this_thread::get_id();
        for (std::int32_t y = area.min.y; isRead && y < area.max.y; ++y) {
            Array<std::uint8_t> row(static_cast<std::size_t>(area.width()) * 4, 51);
            take({area.min.x, y}, row.data(), area.width());
        }
    }
};

/// Returns a picture of the desktop in which red is x, green is y and blue is 7.
inline Platform::DesktopPicture desktopPicture(Pixel size)
{
    Platform::DesktopPicture picture;
    picture.size = size;
    for (std::int32_t y = 0; y < size.y; ++y) {
        for (std::int32_t x = 0; x < size.x; ++x) {
            for (const int byte : {7, y, x, 99})
                picture.bgrx.push_back(static_cast<std::uint8_t>(byte));
        }
    }
    return picture;
}

} // namespace Nolvex::Tests
