// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureServerRun.h"

#include "apps/viewer/wire/WireCommand.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using Wx::Legacy::SocketAddress;
using Wx::Legacy::TcpSocket;

// How often the time limits of the messages are checked.
constexpr unsigned CHECK_PERIOD_SECONDS = 1;

// So long the thread rests when no connection can be accepted although one waits.
constexpr std::chrono::milliseconds RETRY_PERIOD(20);

// The states that are told have at least this distance, and a longer one if only pictures have changed that
// are not complete and must be copied.
constexpr std::chrono::milliseconds MIN_PERIOD(10);
constexpr std::chrono::milliseconds MIN_COPY_PERIOD(50);

// Copying takes at most a fifth of the time of one processor. The time is that of the last copy, but not less
// than it takes at this speed: the first copy of a picture is blank and takes no time.
constexpr int REST_PER_COPY = 4;
constexpr std::int64_t MAX_COPIED_BYTES_PER_SECOND = std::int64_t{2} << 30;

constexpr std::chrono::milliseconds REFUSAL_TIME(1000);

std::int64_t byteCountOf(const Image& image)
{
    return static_cast<std::int64_t>(image.rowBytes()) * image.descriptor().height;
}

std::shared_ptr<const Image> makePicture(PictureNews& news)
{
    const std::unique_ptr<Image> image = std::move(news.image);
    news.picture = std::make_shared<const Picture>(news.name, std::move(*image), news.alpha);
    return {news.picture, &news.picture->image()};
}

} // namespace

PictureServerRun::PictureServerRun(const SocketAddress& address, const WireLimits& limits,
                                   Function<bool(const Delivery&)> deliver)
    : m_port(address.getPort()),
      m_limits(limits),
      m_deliver(std::move(deliver)),
      m_pictures(limits),
      m_listener(address, CHECK_PERIOD_SECONDS)
{}

PictureServerRun::~PictureServerRun()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_wake.notify_all();
    m_listener.close();
    for (std::thread* thread : {&m_listening, &m_publisher}) {
        if (thread->joinable())
            thread->join();
    }
}

Expected<unsigned short, String> PictureServerRun::start()
try {
    const Optional<SocketAddress> local = m_listener.getLocalAddress();
    if (!local)
        return Unexpected{L"It is not possible to listen on port " + String(std::to_wstring(m_port)) +
                          L". Another program may be using the port."};
    m_publisher = std::thread([this] { publish(); });
    m_listening = std::thread([this] { listen(); });
    return local->getPort();

} catch (const std::system_error&) {
    return Unexpected{String(L"The system has no threads left to listen with.")};
}

void PictureServerRun::listen()
{
    for (;;) {
        TcpSocket socket = m_listener.acceptConnection(true);
        const bool hasCome = socket.isOpen();
        endOverdue();
        if (hasCome)
            serve(std::move(socket));
        std::unique_lock lock(m_mutex);
        if (!hasCome)
            m_wake.wait_for(lock, RETRY_PERIOD, [this] { return m_isStopping; });
        if (m_isStopping)
            break;
    }
    // All of them, before the list waits for each.
    for (PictureConnection& connection : m_connections)
        connection.beginEnd();
    m_connections.clear();
}

void PictureServerRun::endOverdue()
{
    m_connections.remove_if([](const PictureConnection& connection) { return connection.hasEnded(); });
    const Clock::time_point now = Clock::now();
    for (PictureConnection& connection : m_connections)
        connection.endIfOverdue(now);
}

void PictureServerRun::serve(TcpSocket socket)
try {
    if (m_connections.size() < m_limits.maxConnections) {
        m_connections.emplace_back(std::move(socket), m_limits, hooks());
        return;
    }
    const String refusal = L"The viewer has as many connections as it takes, which is " +
                           String(std::to_wstring(m_limits.maxConnections)) + L".";
    // A sender that does not take this short answer at once gets none.
    static_cast<void>(socket.writeString(composeWireAnswer(refusal), REFUSAL_TIME.count()));

} catch (const std::system_error&) {
    fail(L"A sender was sent away, because the system has no thread left for its connection.");
}

PictureConnection::Hooks PictureServerRun::hooks()
{
    const ReceivedPictures::Connection number = ++m_lastConnection;
    return {[this, number](const XmlString& header, ArrayView<const std::byte> pixels) {
                const std::lock_guard lock(m_mutex);
                Optional<String> refusal = m_pictures.apply(number, header, pixels);
                m_wake.notify_all();
                return refusal;
            },
            [this, number](const String& reason) {
                const std::lock_guard lock(m_mutex);
                m_pictures.endConnection(number, reason);
                m_wake.notify_all();
            }};
}

void PictureServerRun::forget(const String& name)
{
    const std::lock_guard lock(m_mutex);
    m_pictures.forget(name);
    if (!m_isDelivered)
        m_forgotten.insert(name);
}

bool PictureServerRun::isForgotten(const String& name)
{
    const std::lock_guard lock(m_mutex);
    return m_forgotten.contains(name);
}

void PictureServerRun::fail(const String& reason)
{
    const std::lock_guard lock(m_mutex);
    m_failure = reason;
    m_wake.notify_all();
}

void PictureServerRun::publish()
{
    Clock::time_point nextCopy = Clock::now();
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_isStopping || (m_isDelivered && hasNews()); });
        m_wake.wait_until(lock, nextCopy, [this] {
            return m_isStopping || !m_failure.isEmpty() || m_pictures.hasNewsWithoutCopy();
        });
        if (m_isStopping)
            return;
        const Clock::time_point begin = Clock::now();
        const bool mayCopy = begin >= nextCopy;
        Delivery delivery = takeDelivery(mayCopy);
        if (mayCopy)
            nextCopy = Clock::now() + restAfter(delivery, Clock::now() - begin);
        m_isDelivered = false;
        post(std::move(delivery));
        m_wake.wait_for(lock, MIN_PERIOD, [this] { return m_isStopping; });
    }
}

bool PictureServerRun::hasNews() const
{
    return m_pictures.hasNews() || !m_failure.isEmpty();
}

PictureServerRun::Clock::duration PictureServerRun::restAfter(const Delivery& delivery,
                                                              Clock::duration copying)
{
    std::int64_t bytes = 0;
    for (const PictureNews& news : delivery.news) {
        if (news.picture && !news.isComplete)
            bytes += byteCountOf(news.picture->image());
    }
    const std::chrono::microseconds estimate(bytes * 1'000'000 / MAX_COPIED_BYTES_PER_SECOND);
    return std::max<Clock::duration>(MIN_COPY_PERIOD,
                                     REST_PER_COPY * std::max<Clock::duration>(copying, estimate));
}

PictureServerRun::Delivery PictureServerRun::takeDelivery(bool mayCopy)
{
    Delivery delivery{m_pictures.takeNews(makePicture, mayCopy), std::exchange(m_failure, {})};
    for (PictureNews& news : delivery.news) {
        if (news.image)
            makePicture(news);
    }
    return delivery;
}

void PictureServerRun::post(Delivery delivery)
{
    // A function that is posted must be one that can be copied.
    const auto shared = std::make_shared<const Delivery>(std::move(delivery));
    m_mainThread.CallAfter([this, shared] { deliver(*shared); });
}

void PictureServerRun::deliver(const Delivery& delivery)
{
    const Function<bool(const Delivery&)> function = m_deliver;
    if (!function(delivery))
        return;
    const std::lock_guard lock(m_mutex);
    m_isDelivered = true;
    m_forgotten.clear();
    m_wake.notify_all();
}

} // namespace Nolvex::Viewer
