// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/ReadDataContext.h"

#include "NolvexLib/StopException.h"

namespace Nolvex::Wx::Legacy {

ReadDataContext::ReadDataContext() = default;
ReadDataContext::~ReadDataContext() = default;

Io::Path ReadDataContext::getFilePath(const XmlString& /*header*/) const
{
    Nolvex::Detail::throwStopException("net/LegacySockets", __LINE__);
}

void ReadDataContext::onReceiveStart(const XmlString& /*header*/) const {}

void ReadDataContext::onReceiveEnd(const XmlString& /*header*/) const {}

} // namespace Nolvex::Wx::Legacy
