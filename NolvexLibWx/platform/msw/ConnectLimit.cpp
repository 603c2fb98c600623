// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/ConnectLimit.h"

namespace Nolvex::Platform {

// The toolkit observes the socket's time-out by itself.
class ConnectLimit::Watch
{};

ConnectLimit::ConnectLimit(const wxSocketBase& /*socket*/, std::chrono::milliseconds /*time*/) {}

ConnectLimit::~ConnectLimit() = default;

bool ConnectLimit::hasStruck()
{
    return false;
}

} // namespace Nolvex::Platform
