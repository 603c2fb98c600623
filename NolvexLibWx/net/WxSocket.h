// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx::Legacy {

/// Texts over a wxSocketBase that the host owns. On the wire a text is UTF-8 followed by a zero byte, so it
/// must hold no zero character.
class NOLVEXLIBWX_EXPORT WxSocket
{
public:
    /// Sets the socket's flags to wxSOCKET_WAITALL.
    explicit WxSocket(wxSocketBase* socket);

    /// Destroys the socket.
    void close();

    /// Sets the socket's time-out to that many seconds and leaves it so. The time-out bounds each wait for
    /// the peer, even if the socket has wxSOCKET_BLOCK. Dispatches no events.
    [[nodiscard]] static SocketResult writeString(wxSocketBase* socket, const String& text,
                                                  int timeoutSeconds);

    /// Waits as writeString does. Takes nothing from the socket beyond the zero byte; the socket's push-back
    /// buffer must be empty. `out` changes on success only. A text of more than DEFAULT_HEADER_SIZE_LIMIT
    /// bytes is an error.
    [[nodiscard]] static SocketResult readString(wxSocketBase* socket, String& out, int timeoutSeconds);

private:
    wxSocketBase* m_socket;
};

} // namespace Nolvex::Wx::Legacy
