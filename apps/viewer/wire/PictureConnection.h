// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/TcpSocket.h"
#include "apps/viewer/wire/WireLimits.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <thread>

namespace Nolvex::Viewer {

/// The connection to a sender of pictures, served on a thread of its own until the sender closes the
/// connection or sends what cannot be read.
class PictureConnection : private Noncopyable
{
public:
    using Clock = std::chrono::steady_clock;

    /// Both functions are called on the thread of the connection.
    struct Hooks
    {
        /// Carries a command out. Returns why the command was refused.
        Function<Optional<String>(const XmlString& header, ArrayView<const std::byte> pixels)> apply;
        /// The last call. The reason is a sentence.
        Function<void(const String& reason)> ended;
    };

    /// Throws std::system_error if the system has no thread left.
    PictureConnection(Wx::Legacy::TcpSocket socket, const WireLimits& limits, Hooks hooks);

    /// Breaks off what is being received and waits for the thread.
    ~PictureConnection();

    /// Begins to break off, and does not wait.
    void beginEnd();

    /// Returns true when nothing is left to wait for.
    bool hasEnded() const { return m_ended; }

    /// Ends the connection if the message that is being received should have come by now.
    void endIfOverdue(Clock::time_point now);

private:
    class Context;

    void run();
    void serve();
    void serveMessage();
    Wx::Legacy::SocketResult read(Wx::Legacy::ReceivedData& message);
    Optional<String> apply(const Wx::Legacy::ReceivedData& message);
    void beginBody(const XmlString& header);
    [[noreturn]] void refuse(const String& reason);
    void allow(std::int64_t bodyBytes);
    [[nodiscard]] bool answer(const Optional<String>& failure);

    Wx::Legacy::TcpSocket m_socket;
    WireLimits m_limits;
    Hooks m_hooks;
    String m_reason;                   // why the connection ends
    String m_refusal;                  // why the message is not read to its end, or empty
    std::atomic<Clock::rep> m_dueTime; // of the message that is being received, or the largest number
    std::atomic<bool> m_isOverdue = false;
    std::atomic<bool> m_ended = false;
    std::thread m_thread; // declared last, because it uses all other members
};

} // namespace Nolvex::Viewer
