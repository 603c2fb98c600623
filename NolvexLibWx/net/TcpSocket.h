// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/NoncopyableMovable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceiveLimits.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketOwner.h"
#include "NolvexLibWx/net/SocketResult.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Nolvex::Wx::Legacy {

namespace Detail {

class Connection;

} // namespace Detail

/// One end of a connection, over which tagged messages travel: texts (an XML tree), files and raw memory.
///
/// Open from the successful connect or accept until `close`, destruction, or until a transfer finds that the
/// peer has gone; there is no reopening. All calls are synchronous, need neither a window nor an event loop,
/// and dispatch no events. Only the sockets of wxWidgets must have been initialised on the main thread: by
/// `LibWx::startup`, or by a host without a display that makes a `wxAppConsole`, hands it to
/// `wxAppConsole::SetInstance` and calls `wxInitialize` and `wxSocketBase::Initialize`.
///
/// Any thread may call any function but the moves; whole messages never interleave. `close` ends a transfer
/// that runs on another thread.
///
/// Each step of the protocol waits for a silent peer for a fixed time: 1 second for a header, 5 for raw
/// memory, the file patience for a file, and on sending a body 120 seconds for a file and 3600 for memory.
/// Without a time limit of the caller, a header or a piece of a body of which the peer takes no byte at all
/// is sent again and again, as long as the socket is open. A time limit is in milliseconds and begins when
/// the transfers of other threads are over, so it does not bound the wait for them.
///
/// When a socket is closed on the main thread, wxWidgets frees its memory when the application is next idle.
/// A host whose event loop is not that of wxWidgets calls `wxAppConsole::GetInstance()->ProcessIdle()`, as a
/// timer of `LibWx` does.
///
/// On Linux a socket whose descriptor is 1,024 or more is refused, because wxWidgets cannot wait for it.
///
/// Child processes do not inherit the connection, except for those that another thread starts between the
/// making of the socket and the end of the connect or accept.
class NOLVEXLIBWX_EXPORT TcpSocket : public Polymorphic, private NoncopyableMovable
{
public:
    /// The source is closed afterwards.
    TcpSocket(TcpSocket&& other) noexcept;

    /// Swaps: the connection that this object had is closed with the source.
    TcpSocket& operator=(TcpSocket&& other) noexcept;

    ~TcpSocket() override;

    /// Never waits for a running transfer.
    bool isOpen() const;

    /// Final. Ends transfers on other threads within 200 ms and waits for their end.
    void close();

    /// The first half of `close`, which does not wait: from now on the object is not open, and transfers on
    /// other threads come to their end. A host with many connections begins with all of them, and then waits
    /// for all of them together. `close` or the destructor ends the connection.
    void beginClose();

    /// Returns nullopt without a connection.
    Optional<SocketAddress> getPeerAddress();

    /// A message with a longer header is an error; the rest of the header stays unread.
    void setHeaderSizeLimit(std::size_t bytes);

    /// A header that takes longer to arrive is an error, however steadily its bytes come.
    void setHeaderTimeLimit(std::chrono::milliseconds time);

    /// Sets the file patience: how long the sender may be silent in the middle of a file, compressed or not.
    /// A longer silence is an error. The silence is compared with the patience once a second.
    void setFilePatience(std::chrono::milliseconds silence);

    /// Waits for the first byte of the next message. Returns false if the peer was silent for so long, or if
    /// the connection has ended (see isOpen). A read that fails after true was returned has found a message
    /// that is broken or incomplete, and not a peer that has nothing to say.
    [[nodiscard]] bool waitForMessage(std::chrono::milliseconds silence);

    /// Receives one message. Only a text is a success and changes `out`. Raw memory is read and discarded; a
    /// file is a programming error (StopException), because there is no place to write it to.
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

    /// Sends a file; `type`, by which the receiver tells the kind, should be DataType::File. A file to
    /// deflate is compressed in memory before its header is sent; the time limit counts that time, but does
    /// not cut it short. A file that cannot be read, or that becomes shorter meanwhile, is an error.
    [[nodiscard]] SocketResult writeFile(const Io::Path& path, const XmlString& header,
                                         DataCompression compression, DataType type,
                                         const Optional<std::int64_t>& timeoutMs = {});

    /// Sends a block of memory, never compressed; `type` should be DataType::RawData. Receivers refuse empty
    /// blocks and those of more than 2,147,483,647 bytes.
    [[nodiscard]] SocketResult writeRawMemory(ArrayView<const std::byte> data, const XmlString& header,
                                              DataCompression compression, DataType type,
                                              const Optional<std::int64_t>& timeoutMs = {});

protected:
    /// Takes the socket, which is connected or null.
    explicit TcpSocket(Detail::SocketOwner socket);

    /// The socket to connect once more, or null. It belongs to this object.
    wxSocketBase* wxSocket() const;

    /// Takes another connected socket in place of that one.
    void replaceSocket(Detail::SocketOwner socket);

private:
    friend class TcpListener;

    void swapConnection(TcpSocket& other);
    Detail::ReceiveLimits limits() const;

    // Held for whole messages.
    Mutex m_mutex;
    // Held for moments only, and always locked last. m_connection is changed under both locks and read under
    // either of them; m_limits is guarded by this lock alone.
    mutable Mutex m_stateMutex;
    AutoPtr<Detail::Connection> m_connection;
    Detail::ReceiveLimits m_limits;
};

} // namespace Nolvex::Wx::Legacy
