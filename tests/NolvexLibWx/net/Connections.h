// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/net/LegacySockets.h"
#include "support/RawSocket.h"

#include <wx/app.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace Nolvex::Tests {

namespace Legacy = Wx::Legacy;

/// A connection of which both ends are sockets of the library.
struct ConnectedPair
{
    Legacy::TcpListener listener{Legacy::SocketAddress::localhost(0), 10};
    Legacy::TcpClient client{Legacy::SocketAddress::localhost(listener.getLocalAddress()->getPort()), 10};
    Legacy::TcpSocket server = listener.acceptConnection(true);
};

/// A connection between a socket of the library and a raw peer.
struct RawPeerPair
{
    RawSocket rawListener = RawSocket::listening();
    Legacy::TcpClient socket{Legacy::SocketAddress::localhost(rawListener.port()), 10};
    RawSocket peer = rawListener.accept();
};

inline std::int64_t elapsedMs(std::chrono::steady_clock::time_point start)
{
    const auto elapsed = std::chrono::steady_clock::now() - start;
    return std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
}

inline XmlString tree(StringView key, const String& value)
{
    XmlString result;
    result.addChild(key, value);
    return result;
}

/// Returns the bytes of a literal with all zeros in it.
template<std::size_t N>
std::string_view bytes(const char (&text)[N])
{
    return {text, N - 1};
}

inline std::string header(std::string_view children)
{
    std::string text = "<root>";
    text.append(children).append("</root>").push_back('\0');
    return text;
}

inline std::string element(const std::string& name, const std::string& text)
{
    return "<" + name + ">" + text + "</" + name + ">";
}

inline std::string textOf(const ByteArray& data)
{
    return {reinterpret_cast<const char*>(data.data()), data.size()};
}

inline ArrayView<const std::byte> viewOf(std::string_view text)
{
    return {reinterpret_cast<const std::byte*>(text.data()), text.size()};
}

inline ByteArray byteArrayOf(std::string_view text)
{
    ByteArray result;
    result.append(viewOf(text).data(), text.size());
    return result;
}

/// wxWidgets frees sockets that were destroyed on the main thread later. This function makes it do so now.
inline void freeDestroyedSockets()
{
    wxAppConsole::GetInstance()->ProcessIdle();
}

} // namespace Nolvex::Tests
