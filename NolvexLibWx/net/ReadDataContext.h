// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx::Legacy {

/// The hooks by which TcpSocket::readData asks and tells its caller. The socket is locked while a hook runs:
/// of its functions only isOpen may be called.
///
/// An Exception that a hook throws in the course of a file ends the transfer with SocketResult::Error, as a
/// failure of the file does. Any other exception of a hook, and an Exception in the course of raw data,
/// reaches readData's caller, with the socket unlocked.
class NOLVEXLIBWX_EXPORT ReadDataContext : public Polymorphic
{
public:
    ReadDataContext();
    ~ReadDataContext() override;

    /// Says where to write the file that is coming. Called once for each file, before the other hooks; an
    /// existing file is overwritten. The peer wrote the header, so no name in it should be trusted. Without
    /// an override a file is a programming error (StopException).
    virtual Io::Path getFilePath(const XmlString& header) const;

    /// Called when the body of a file or of raw data begins. This one does nothing.
    virtual void onReceiveStart(const XmlString& header) const;

    /// Called when the body has ended, whether by success, failure or exception, after an onReceiveStart that
    /// returned. This one does nothing.
    virtual void onReceiveEnd(const XmlString& header) const;
};

} // namespace Nolvex::Wx::Legacy
