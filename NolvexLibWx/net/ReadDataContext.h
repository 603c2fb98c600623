// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/XmlString.h"
#include "NolvexLibWx/Export.h"

namespace Nolvex::Wx::Legacy {

/// What TcpSocket::readData asks and tells its caller. The socket is locked meanwhile: of its functions only
/// isOpen may be called. What a hook throws reaches readData's caller, with the socket unlocked.
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

    /// The body ended, in whichever way. Does nothing by itself.
    virtual void onReceiveEnd(const XmlString& header) const;
};

} // namespace Nolvex::Wx::Legacy
