// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/viewer/wire/PictureSender.h"
#include "apps/viewer/wire/PictureServer.h"
#include "support/PairedRatio.h"
#include "support/RawPair.h"

#include <wx/app.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

namespace Nolvex::Benchmarks {

namespace {

constexpr int WIDTH = 3840;
constexpr int HEIGHT = 2160;

Image noise()
{
    Image image = *Image::create(WIDTH, HEIGHT, PixelFormat::FLOAT32_RGB, 2.2f);
    std::uint32_t state = 1;
    for (int y = 0; y < HEIGHT; ++y) {
        for (std::byte& value : image.row(y)) {
            state = state * 1664525u + 1013904223u;
            value = static_cast<std::byte>(state >> 24);
        }
    }
    return image;
}

// The sender runs in a thread of this process. Both works end when this thread has all pixels.
class Stage
{
public:
    Stage()
    {
        const Expected<unsigned short, String> port = m_server.start();
        check(port.hasValue() && !m_sender.connect(L"127.0.0.1", *port));
    }

    void copyBare()
    {
        const auto* const pixels = reinterpret_cast<const char*>(m_image.row(0).data());
        std::thread sending([&] { sendAll(m_bare.first(), pixels, m_copy.size()); });
        receiveAll(m_bare.second(), m_copy.data(), m_copy.size());
        sending.join();
    }

    void sendPicture()
    {
        m_hasArrived = false;
        bool isSent = false;
        std::thread sending([&] { isSent = !m_sender.send(L"noise", m_image); });
        while (!m_hasArrived) {
            wxTheApp->ProcessPendingEvents();
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        sending.join();
        check(isSent);
    }

private:
    struct Library
    {
        Library() { LibWx::startup(LibWx::ApplicationType::APPLICATION); }

        ~Library() { LibWx::shutdown(); }

        Library(const Library&) = delete;
        Library& operator=(const Library&) = delete;
    };

    Library m_library;
    Image m_image = noise();
    std::vector<char> m_copy = std::vector<char>(m_image.rowBytes() * HEIGHT);
    RawPair m_bare;
    bool m_hasArrived = false;
    Viewer::PictureServer m_server{
        {.received = [this](const Viewer::ArrivedPicture& arrived) { m_hasArrived = arrived.isComplete; }}};
    Viewer::PictureSender m_sender;
};

Contest receivingAPicture()
{
    const auto stage = std::make_shared<Stage>();
    return {[stage] { stage->copyBare(); }, [stage] { stage->sendPicture(); }};
}

// The figure is the time in which the bytes go through a bare connection into memory that is there already,
// divided by the time from the first call of the sender to the picture on the main thread of the viewer.
const Figure RECEIVE_4K("viewer_receive_4k", 0.33, receivingAPicture);

} // namespace

} // namespace Nolvex::Benchmarks
