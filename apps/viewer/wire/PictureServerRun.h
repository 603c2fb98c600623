// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/TcpListener.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/wire/PictureConnection.h"
#include "apps/viewer/wire/ReceivedPictures.h"
#include "apps/viewer/wire/WireLimits.h"

#include <wx/event.h>

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <set>
#include <thread>

namespace Nolvex::Viewer {

/// The threads of a PictureServer, from the moment in which it begins to listen until it stops: one takes the
/// connections, one makes the states for the main thread, and each connection has its own.
class PictureServerRun : private Noncopyable
{
public:
    /// What the main thread is told.
    struct Delivery
    {
        Array<PictureNews> news; // with pictures, and without images
        /// Why the server does not work as it should, or empty.
        String failure;
    };

    /// The function is called on the main thread, and may destroy this object. It returns false if it has.
    PictureServerRun(const Wx::Legacy::SocketAddress& address, const WireLimits& limits,
                     Function<bool(const Delivery&)> deliver);

    /// Breaks off all connections and waits for the threads. To be called on the main thread.
    ~PictureServerRun();

    /// As PictureServer::start. To be called once.
    Expected<unsigned short, String> start();

    void forget(const String& name);

    /// Returns whether the picture was forgotten after its news were posted that are being delivered.
    bool isForgotten(const String& name);

private:
    using Clock = std::chrono::steady_clock;

    void listen();
    void serve(Wx::Legacy::TcpSocket socket);
    PictureConnection::Hooks hooks();
    void endOverdue();
    void publish();
    bool hasNews() const;
    static Clock::duration restAfter(const Delivery& delivery, Clock::duration copying);
    Delivery takeDelivery(bool mayCopy);
    void post(Delivery delivery);
    void deliver(const Delivery& delivery);
    void fail(const String& reason);

    const unsigned short m_port; // 0 if the system chooses
    const WireLimits m_limits;
    const Function<bool(const Delivery&)> m_deliver;

    std::mutex m_mutex; // guards the next six members
    std::condition_variable m_wake;
    ReceivedPictures m_pictures;
    String m_failure;
    bool m_isStopping = false;
    bool m_isDelivered = true;    // the main thread has taken all that was posted
    std::set<String> m_forgotten; // while something is posted

    // Of the thread that takes connections.
    std::list<PictureConnection> m_connections;
    ReceivedPictures::Connection m_lastConnection = 0;

    Wx::Legacy::TcpListener m_listener;
    wxEvtHandler m_mainThread; // carries what has arrived to the main thread
    std::thread m_publisher;
    std::thread m_listening;
};

} // namespace Nolvex::Viewer
