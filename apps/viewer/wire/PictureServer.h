// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Bucket.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "apps/viewer/Picture.h"
#include "apps/viewer/wire/PictureServerRun.h"
#include "apps/viewer/wire/WireLimits.h"

#include <memory>

namespace Nolvex::Viewer {

/// The state of a picture that is being received, or has been.
struct ArrivedPicture
{
    String name;
    SharedPicture picture;
    /// The smallest rectangle that holds all changes since the last state of the same picture. The top left
    /// pixel of the picture is (0, 0).
    Bucket changed;
    /// From 0 to 1, as the sender tells.
    float progress = 0.0f;
    bool isComplete = false;
};

/// Receives pictures from renderers, scripts and other viewers, as docs/picture-protocol.md describes.
///
/// To be used on the main thread, on which all callbacks are called, from the event loop. A callback may
/// destroy the server. Connections are served by threads of their own, which touch no window. A picture that
/// changes often is told at a bounded rate, and not again before the main thread has taken its last state.
class PictureServer : private Noncopyable
{
public:
    /// Each function may be empty. A name may be that of a picture of which nothing has been received.
    struct Callbacks
    {
        /// The pixels of a picture have changed. The picture is another one than before if its size or
        /// format differ.
        Function<void(const ArrivedPicture& arrived)> received = nullptr;
        /// The sender has told how much is done, from 0 to 1, and no pixels have changed. With 1 the picture
        /// is complete.
        Function<void(const String& name, float progress)> progressed = nullptr;
        /// The sender has closed the picture.
        Function<void(const String& name)> closed = nullptr;
        /// The connection ended before the picture was complete. The text is a sentence that says why. What
        /// has arrived was received before.
        Function<void(const String& name, const String& text)> connectionLost = nullptr;
        /// Something went wrong that concerns no picture. The text is a sentence. The server goes on.
        Function<void(const String& text)> failed = nullptr;
    };

    explicit PictureServer(Callbacks callbacks, const WireLimits& limits = {});

    /// As `stop`.
    ~PictureServer();

    /// Begins to listen, on this computer only unless the address is another. With port 0 the system chooses
    /// a port. Returns the port, or a sentence that says why there is none. A server that listens already
    /// stops before.
    Expected<unsigned short, String>
    start(const Wx::Legacy::SocketAddress& address = Wx::Legacy::SocketAddress::localhost(0));

    /// Ends all connections within a second. No callback is called afterwards.
    void stop();

    bool isRunning() const { return m_run != nullptr; }

    /// Tells that the viewer no longer shows a picture. A sender that goes on is told that there is no such
    /// picture. States of the picture that have arrived are not told any more.
    void forget(const String& name);

private:
    bool deliver(const PictureServerRun::Delivery& delivery);
    static void tellState(const Callbacks& callbacks, const PictureNews& news);
    static void tellEnd(const Callbacks& callbacks, const PictureNews& news);

    Callbacks m_callbacks;
    WireLimits m_limits;
    std::shared_ptr<PictureServerRun> m_run; // while the server listens
};

} // namespace Nolvex::Viewer
