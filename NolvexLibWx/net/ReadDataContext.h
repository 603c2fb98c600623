// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx::Legacy {

/// What TcpSocket::readData asks and tells its caller. The socket is locked meanwhile: of its functions only
/// isOpen may be called.
///
/// An Exception that a hook raises in the course of a file ends the transfer with SocketResult::Error, as one
/// of the file itself. Everything else that a hook throws, and an Exception in the course of raw data,
/// reaches readData's caller, with the socket unlocked.
class NOLVEXLIBWX_EXPORT ReadDataContext : public Polymorphic
{
public:
    ReadDataContext();
    ~ReadDataContext() override;

    /// Where to write the file that is coming. Asked once, first, for each file; a file that is there already
    /// is overwritten. The header is the peer's word: no name in it should be trusted. Without an override a
    /// file is a programming error (StopException).
    virtual Io::Path getFilePath(const XmlString& header) const;

    /// The body of a file or of raw data begins. Does nothing by itself.
    virtual void onReceiveStart(const XmlString& header) const;

    /// The body ended, in whichever way, exceptions included, after an onReceiveStart that returned. Does
    /// nothing by itself.
    virtual void onReceiveEnd(const XmlString& header) const;
};

} // namespace Nolvex::Wx::Legacy
