// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketOwner.h"

#include <wx/socket.h>

namespace Nolvex::Wx::Legacy {

void Detail::DestroySocket::operator()(wxSocketBase* socket) const
{
    socket->Destroy();
}

} // namespace Nolvex::Wx::Legacy
