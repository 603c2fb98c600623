// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/NoncopyableMovable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/DataCompression.h"
#include "NolvexLibWx/net/DataType.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy {

/// The longest header that is read, terminator not counted, unless the host sets another limit. While it is
/// parsed, a header may take 20 times its length of memory: one of that length 1.3 GB.
inline constexpr std::size_t DEFAULT_HEADER_SIZE_LIMIT = std::size_t{64} << 20;

/// One end of a connection, over which tagged messages travel: texts (an XML tree), files and raw memory.
///
/// Open from the successful connect or accept until `close`, destruction, or until a transfer finds that the
/// peer has gone; there is no reopening. All calls are synchronous and need neither a window nor an event
/// loop, and dispatch no events. Only the toolkit's sockets must have been initialised, on the main thread:
/// by `LibWx::startup`, or by a host without a display that makes a `wxAppConsole`, hands it to
/// `wxAppConsole::SetInstance` and calls `wxInitialize` and `wxSocketBase::Initialize`.
///
/// Any thread may call any function but the moves; whole messages never interleave. `close` ends a transfer
/// that runs on another thread. Time limits are in milliseconds. A silent peer is waited for for the seconds
/// that the step of the protocol gives him: 1 for a header or a file, 5 for raw memory, and when sending a
/// body 120 for a file and 3600 for memory. Without a time limit, sending a header or a piece of a
/// body is tried again, as long as the socket is open, until the peer takes the first byte.
///
/// What a socket closed on the main thread leaves of memory is freed when the application is next idle; a
/// host whose loop the toolkit does not see calls `wxAppConsole::ProcessIdle`, as `LibWx` does by a timer.
///
/// On Linux a socket whose descriptor is 1,024 or more is refused, as the toolkit cannot wait for it.
///
/// Child processes do not inherit the connection, but for those started by another thread in the moment
/// between the making of the socket and the end of the connect or accept.
class NOLVEXLIBWX_EXPORT TcpSocket : public Polymorphic, private NoncopyableMovable
{
public:
    /// The source is closed afterwards.
    TcpSocket(TcpSocket&& other) noexcept;

    /// Swaps: what this was connected to is closed with the source.
    TcpSocket& operator=(TcpSocket&& other) noexcept;

    ~TcpSocket() override;

    /// Never waits for a running transfer.
    bool isOpen() const;

    /// Final. Ends transfers on other threads within 200 ms and waits for that.
    void close();

    /// None without a connection.
    Optional<SocketAddress> getPeerAddress();

    /// The header of a message that is longer is an error; the rest of it stays unread.
    void setHeaderSizeLimit(std::size_t bytes);

    /// Receives one message. Only a text is a success and changes `out`; raw memory is read and discarded,
    /// and a file is a programming error (StopException), as nobody says where to write it.
    [[nodiscard]] SocketResult readString(XmlString& out);

    /// Sends a text. The child "DataType" is put in front of the tree's children.
    [[nodiscard]] SocketResult writeString(const XmlString& message,
                                           const Optional<std::int64_t>& timeoutMs = {});

    /// Receives one message into the alternative of its kind. `out` is reset as soon as the kind is known and
    /// may be filled in part on failure; a file written in part stays on the disk. A kind that does not exist
    /// is a StopException, thrown with the socket unlocked and `out` unchanged; what follows the header is
    /// unread then.
    [[nodiscard]] SocketResult readData(ReceivedData& out, const ReadDataContext& context);

    /// Sends a message without a time limit: `writeString`, `writeFile` or `writeRawMemory`, by the
    /// alternative. `compression` and `type` mean nothing for a text. An empty variant is an error.
    [[nodiscard]] SocketResult writeData(const ReceivedData& data, DataCompression compression,
                                         DataType type);

    /// Sends a file; `type`, which the receiver goes by, should be DataType::File. Deflated files are
    /// compressed in memory first. A file that cannot be read, or is shorter in the end than it was in the
    /// beginning, is an error.
    [[nodiscard]] SocketResult writeFile(const Io::Path& path, const XmlString& header,
                                         DataCompression compression, DataType type,
                                         const Optional<std::int64_t>& timeoutMs = {});

    /// Sends a block of memory, never compressed; `type` should be DataType::RawData. Receivers refuse empty
    /// blocks and those of more than 2,147,483,647 bytes.
    [[nodiscard]] SocketResult writeRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                                              DataCompression compression, DataType type,
                                              const Optional<std::int64_t>& timeoutMs = {});

protected:
    /// Takes the socket, which may be null; it must be connected otherwise.
    explicit TcpSocket(Detail::SocketOwner socket);

    /// For connecting once more; null when there is none. Belongs to this object.
    wxSocketBase* toolkitSocket() const { return m_socket.get(); }

    /// Takes another socket in place of that one.
    void replaceSocket(Detail::SocketOwner socket);

private:
    friend class TcpListener;

    void release();
    void swapConnection(TcpSocket& other);

    // Held for whole messages.
    Mutex m_mutex;
    // Held for moments only, and the last one to be locked: m_socket is changed under both, read under
    // either.
    mutable Mutex m_socketMutex;
    Detail::SocketOwner m_socket;
    std::atomic<bool> m_closed = false;
    // A transfer failed for good, though the toolkit may not know that the connection ended.
    std::atomic<bool> m_lost = false;
    std::atomic<std::size_t> m_headerSizeLimit = DEFAULT_HEADER_SIZE_LIMIT;
};

} // namespace Nolvex::Wx::Legacy
