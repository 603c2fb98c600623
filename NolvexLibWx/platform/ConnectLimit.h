// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <wx/socket.h>

#include <chrono>
#include <memory>

namespace Nolvex::Platform {

/// While it lives, a connect of the socket on this thread ends after that time, and signals do not end it.
class ConnectLimit : private Noncopyable
{
public:
    /// The socket must not have been connected before, as its descriptor would change under the eyes of this.
    /// It must outlive this and, on destruction, still have the descriptor that it was connecting.
    ConnectLimit(const wxSocketBase& socket, std::chrono::milliseconds time);
    ~ConnectLimit();

    /// To be called when the connect has returned. True when the time was over before, and the connection, if
    /// there is one, was cut.
    bool hasStruck();

private:
    class Watch;
    std::unique_ptr<Watch> m_watch;
};

} // namespace Nolvex::Platform
