// SPDX-License-Identifier: MIT
#pragma once

#include <wx/socket.h>

#include <chrono>

namespace Nolvex::Platform {

/// Connects a client that has wxSOCKET_BLOCK and was not connected before. Returns false if that fails or
/// takes longer than `time`. Signals are handled meanwhile and do not end the attempt.
bool connectWithin(wxSocketClient& client, const wxIPV4address& address, std::chrono::milliseconds time);

} // namespace Nolvex::Platform
