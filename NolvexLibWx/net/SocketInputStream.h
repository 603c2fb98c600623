// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryInputStream.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx {

/// The bytes that arrive at a wxSocketBase, as a stream. The socket's time-out bounds each wait for the peer;
/// no events are dispatched.
///
/// Made for callers that know how much is to come. As a BinaryInputStream it cannot tell counts or ends:
/// readImpl reports the socket's last write count, and eof tells whether the last read was complete. A read
/// may take several reads of the socket, whose LastReadCount is then that of the last of them.
class NOLVEXLIBWX_EXPORT SocketInputStream : public Io::BinaryInputStream
{
public:
    /// The socket must outlive the stream.
    explicit SocketInputStream(wxSocketBase* socket);
    ~SocketInputStream() override;

    /// Reads `count` bytes, beginning with those that were put back, and returns how many are in `buffer`:
    /// fewer if the peer went away or was silent for too long.
    std::int64_t read(void* buffer, std::int64_t count);

    /// How many bytes the last read took from the socket.
    std::int64_t lastReadCount() const { return m_delivered; }

protected:
    std::int64_t readImpl(void* buffer, std::int64_t count) override;
    bool eofImpl() override;

private:
    wxSocketBase* m_socket;
    bool m_ok = false;
    std::int64_t m_requested = 0;
    std::int64_t m_delivered = 0;
};

} // namespace Nolvex::Wx
