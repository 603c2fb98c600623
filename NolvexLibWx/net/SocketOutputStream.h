// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/BinaryOutputStream.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

#include <cstdint>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx {

/// Sends what is written over a wxSocketBase. The socket's time-out bounds each wait for the peer; no events
/// are dispatched. Throws nothing: a write that fails leaves bytes out. A write may take several writes of
/// the socket; LastWriteCount of the socket is that of the last of them, `lastWriteCount` that of all.
class NOLVEXLIBWX_EXPORT SocketOutputStream : public Io::BinaryOutputStream
{
public:
    /// The socket must outlive the stream.
    explicit SocketOutputStream(wxSocketBase* socket);
    ~SocketOutputStream() override;

    /// Does nothing, because nothing is held back.
    void flush() override;

    /// How many bytes of the last write were sent.
    std::int64_t lastWriteCount() const { return m_lastWriteCount; }

protected:
    void writeImpl(const void* buffer, std::int64_t count) override;

private:
    wxSocketBase* m_socket;
    std::int64_t m_lastWriteCount = 0;
};

} // namespace Nolvex::Wx
