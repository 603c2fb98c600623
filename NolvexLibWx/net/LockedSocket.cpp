// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/LockedSocket.h"

#include "NolvexLibWx/net/SocketTransfer.h"

#include <algorithm>

namespace Nolvex::Wx::Legacy::Detail {

LockedSocket::LockedSocket(wxSocketBase* socket, const std::atomic<bool>& isClosed, std::atomic<bool>& isLost)
    : m_socket(socket), m_isClosed(isClosed), m_isLost(isLost)
{}

bool LockedSocket::isOpen() const
{
    return m_socket != nullptr && m_socket->IsOk() && !m_socket->IsClosed() && !m_isClosed && !m_isLost;
}

void LockedSocket::setTimeout(std::int64_t seconds)
{
    const auto timeout = static_cast<long>(std::clamp<std::int64_t>(seconds, 0, LONGEST_TOOLKIT_TIMEOUT));
    if (timeout != m_socket->GetTimeout())
        m_socket->SetTimeout(timeout);
}

std::int64_t LockedSocket::receive(void* buffer, std::int64_t count)
{
    Wx::Detail::SocketTransfer transfer(*m_socket, m_isClosed);
    const std::int64_t done = transfer.receive(buffer, count);
    note(transfer);
    return done;
}

bool LockedSocket::receiveText(std::string& text, std::size_t limit)
{
    Wx::Detail::SocketTransfer transfer(*m_socket, m_isClosed);
    const bool isComplete = transfer.receiveText(text, limit);
    note(transfer);
    return isComplete;
}

std::int64_t LockedSocket::send(const void* buffer, std::int64_t count, const TimeLimit& limit,
                                Patience patience)
{
    Wx::Detail::SocketTransfer transfer(*m_socket, m_isClosed);
    if (limit.isGiven()) {
        transfer.setDeadline(limit.end());
        if (patience == Patience::TIME_LIMIT)
            transfer.waitForDeadline();
    }
    const std::int64_t done = transfer.send(buffer, count);
    note(transfer);
    return done;
}

void LockedSocket::note(const Wx::Detail::SocketTransfer& transfer)
{
    if (transfer.isLost())
        m_isLost = true;
}

} // namespace Nolvex::Wx::Legacy::Detail
