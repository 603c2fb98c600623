// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryInputStream.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx {

/// What comes over a toolkit socket, as a stream. The socket's time-out bounds each wait for the peer; no
/// events are dispatched.
///
/// Made for callers that know how much is to come. Seen as a BinaryInputStream it cannot tell counts or ends:
/// readImpl reports the socket's last write count, and eof tells whether the last read was complete. One read
/// may take several of the toolkit's: the socket's LastReadCount is that of the last one only.
class NOLVEXLIBWX_EXPORT SocketInputStream : public Io::BinaryInputStream
{
public:
    /// The socket must outlive the stream.
    explicit SocketInputStream(wxSocketBase* socket);
    ~SocketInputStream() override;

    /// Reads `count` bytes, those put back first, and returns how many there are in `buffer`: fewer when the
    /// peer went away or fell silent.
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
