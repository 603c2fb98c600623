// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx::Legacy::Detail {

/// Destroys a socket by wxSocketBase::Destroy: the connection ends at once. On the main thread wxWidgets
/// frees the object's memory when the application is next idle.
struct DestroySocket
{
    NOLVEXLIBWX_EXPORT void operator()(wxSocketBase* socket) const;
};

using SocketOwner = AutoPtr<wxSocketBase, DestroySocket>;

} // namespace Nolvex::Wx::Legacy::Detail
