// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/AutoPtr.h"
#include "NolvexLibWx/Export.h"

#include <wx/defs.h>

class WXDLLIMPEXP_FWD_NET wxSocketBase;

namespace Nolvex::Wx::Legacy::Detail {

/// Gives a toolkit socket back the way the toolkit wants it: the connection ends at once. On the main thread
/// the object's memory is freed when the application is next idle.
struct DestroySocket
{
    NOLVEXLIBWX_EXPORT void operator()(wxSocketBase* socket) const;
};

using SocketOwner = AutoPtr<wxSocketBase, DestroySocket>;

} // namespace Nolvex::Wx::Legacy::Detail
