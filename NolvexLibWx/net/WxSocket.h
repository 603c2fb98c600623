// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/String.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx::Legacy {

/// Texts over a toolkit socket that somebody else owns. On the wire a text is UTF-8 followed by a zero byte,
/// so it must hold no zero character.
class NOLVEXLIBWX_EXPORT WxSocket
{
public:
    /// Sets the socket's flags to wxSOCKET_WAITALL.
    explicit WxSocket(wxSocketBase* socket);

    /// Destroys the socket.
    void close();

    /// The socket's time-out is changed to that many seconds and stays so. It bounds each wait for the peer,
    /// also on a socket with wxSOCKET_BLOCK. Dispatches no events.
    [[nodiscard]] static SocketResult writeString(wxSocketBase* socket, const String& text,
                                                  int timeoutSeconds);

    /// As writeString. Takes nothing from the socket beyond the zero byte; nothing may be in its push-back
    /// buffer. `out` changes on success only. A text of more than DEFAULT_HEADER_SIZE_LIMIT bytes is an
    /// error.
    [[nodiscard]] static SocketResult readString(wxSocketBase* socket, String& out, int timeoutSeconds);

private:
    wxSocketBase* m_socket;
};

} // namespace Nolvex::Wx::Legacy
