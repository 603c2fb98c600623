// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/PictureServer.h"

#include "apps/viewer/wire/PictureServerRun.h"

#include <utility>

namespace Nolvex::Viewer {

PictureServer::PictureServer(Callbacks callbacks, const WireLimits& limits)
    : m_callbacks(std::move(callbacks)), m_limits(limits)
{}

PictureServer::~PictureServer()
{
    stop();
}

Expected<unsigned short, String> PictureServer::start(const Wx::Legacy::SocketAddress& address)
{
    stop();
    auto run = std::make_shared<PictureServerRun>(
        address, m_limits, [this](const PictureServerRun::Delivery& delivery) { return deliver(delivery); });
    Expected<unsigned short, String> port = run->start();
    if (port)
        m_run = std::move(run);
    return port;
}

void PictureServer::stop()
{
    // The destructor ends the threads. What they have left for the main thread goes with the object.
    m_run.reset();
}

void PictureServer::forget(const String& name)
{
    if (m_run)
        m_run->forget(name);
}

// Each callback may stop or destroy the server, or forget a picture. Returns false if the server has stopped.
bool PictureServer::deliver(const PictureServerRun::Delivery& delivery)
{
    const std::weak_ptr<PictureServerRun> run = m_run;
    const auto isWanted = [&run](const String& name) {
        const std::shared_ptr<PictureServerRun> alive = run.lock();
        return alive && !alive->isForgotten(name);
    };
    const Callbacks callbacks = m_callbacks;
    for (const PictureNews& news : delivery.news) {
        if (isWanted(news.name))
            tellState(callbacks, news);
        if (isWanted(news.name))
            tellEnd(callbacks, news);
        if (run.expired())
            return false;
    }
    if (!delivery.failure.isEmpty() && callbacks.failed)
        callbacks.failed(delivery.failure);
    return !run.expired();
}

void PictureServer::tellState(const Callbacks& callbacks, const PictureNews& news)
{
    if (news.picture && callbacks.received)
        callbacks.received({news.name, news.picture, news.changed, news.progress, news.isComplete});
    else if (!news.picture && news.end == PictureNews::End::NONE && callbacks.progressed)
        callbacks.progressed(news.name, news.progress);
}

void PictureServer::tellEnd(const Callbacks& callbacks, const PictureNews& news)
{
    if (news.end == PictureNews::End::CLOSED && callbacks.closed)
        callbacks.closed(news.name);
    else if (news.end == PictureNews::End::LOST && callbacks.connectionLost)
        callbacks.connectionLost(news.name, news.text);
}

} // namespace Nolvex::Viewer
