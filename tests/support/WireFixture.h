// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/XmlString.h"
#include "apps/viewer/wire/PictureServer.h"
#include "support/RawSocket.h"

#include <wx/app.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <utility>

namespace Nolvex::Tests {

/// Lets the main thread do what other threads have posted until the condition holds. Returns false if that
/// takes longer than `time`.
inline bool serveUntil(const std::function<bool()>& condition,
                       std::chrono::milliseconds time = std::chrono::seconds(20))
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        wxAppConsole::GetInstance()->ProcessPendingEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// A header with the zero byte behind it.
inline std::string terminated(std::string text)
{
    text.push_back('\0');
    return text;
}

/// A server of pictures and all that it has told.
struct WatchedServer
{
    explicit WatchedServer(const Viewer::WireLimits& limits = {})
        : server({.received =
                      [this](const Viewer::ArrivedPicture& arrived) {
                          ++states;
                          pictures[arrived.name] = arrived;
                          log.push_back(L"received " + arrived.name);
                      },
                  .progressed =
                      [this](const String& name, float progress) {
                          pictures[name].progress = progress;
                          pictures[name].isComplete = progress >= 1.0f;
                          log.push_back(L"progressed " + name);
                      },
                  .closed = [this](const String& name) { log.push_back(L"closed " + name); },
                  .connectionLost =
                      [this](const String& name, const String& text) {
                          log.push_back(L"lost " + name);
                          reason = text;
                      },
                  .failed = [this](const String& text) { log.push_back(L"failed " + text); }},
                 limits),
          port(server.start().value())
    {}

    bool hasLogged(const String& line) const { return std::find(log.begin(), log.end(), line) != log.end(); }

    bool isComplete(const String& name) const
    {
        const auto found = pictures.find(name);
        return found != pictures.end() && found->second.isComplete;
    }

    const Image& image(const String& name) { return pictures.at(name).picture->image(); }

    Array<String> log;
    std::map<String, Viewer::ArrivedPicture> pictures;
    String reason;
    int states = 0;
    Viewer::PictureServer server;
    unsigned short port;
};

/// A peer that writes the bytes of its messages itself.
class BareSender
{
public:
    explicit BareSender(unsigned short port) : m_socket(RawSocket::connected(port)) {}

    RawSocket& socket() { return m_socket; }

    /// Sends the children as a text, or with pixels as raw data.
    bool send(const std::string& children, const std::string& pixels = {})
    {
        return m_socket.send(message(children, pixels.size()) + pixels);
    }

    /// Returns the next answer without its zero byte, or what came of it.
    std::string answer()
    {
        std::string text = m_socket.receiveText();
        if (text.ends_with('\0'))
            text.pop_back();
        return text;
    }

    std::string ask(const std::string& children, const std::string& pixels = {})
    {
        return send(children, pixels) ? answer() : "nothing was sent";
    }

    /// The header of a message, with its zero byte. Without a body the message is a text.
    static std::string message(const std::string& children, std::uint64_t bodySize)
    {
        std::string text = "<root><DataType>";
        text += bodySize == 0 ? "0" : "2";
        text += "</DataType>";
        text += children;
        if (bodySize != 0)
            text += "<FileSize>" + std::to_string(bodySize) + "</FileSize><Compressed>0</Compressed>";
        text += "</root>";
        return terminated(std::move(text));
    }

private:
    RawSocket m_socket;
};

inline const std::string ANSWER_OK =
    "<root><DataType>0</DataType><Version>1</Version><Result>ok</Result></root>";

inline std::string refusal(const std::string& text)
{
    return "<root><DataType>0</DataType><Version>1</Version><Result>error</Result><Text>" + text +
           "</Text></root>";
}

/// The children of a command.
inline std::string command(const std::string& name, const std::string& picture,
                           const std::string& more = std::string())
{
    return "<Version>1</Version><Command>" + name + "</Command><Name>" + picture + "</Name>" + more;
}

inline std::string size(int width, int height)
{
    return "<Width>" + std::to_string(width) + "</Width><Height>" + std::to_string(height) + "</Height>";
}

inline std::string place(int x, int y)
{
    return "<X>" + std::to_string(x) + "</X><Y>" + std::to_string(y) + "</Y>";
}

inline std::string format(const std::string& name)
{
    return "<Format>" + name + "</Format>";
}

} // namespace Nolvex::Tests
