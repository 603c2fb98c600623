// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureListening.h"

#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"

#include <wx/window.h>

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

PictureListening::PictureListening(wxWindow& window, Workspace& workspace, Messages messages)
    : m_window(window), m_workspace(workspace), m_messages(std::move(messages)), m_server(callbacks())
{
    m_workspace.observe([this](Flags<Workspace::Change> changes) {
        if (changes.has(Workspace::Change::LIST))
            forgetClosed();
    });
}

PictureServer::Callbacks PictureListening::callbacks()
{
    return {.received = [this](const ArrivedPicture& arrived) { onReceived(arrived); },
            .progressed = [this](const String& name, float progress) { onProgressed(name, progress); },
            .closed = [this](const String& name) { onClosed(name); },
            .connectionLost =
                [this](const String& name, const String& text) {
                    m_progressOf.erase(name);
                    showProgress();
                    m_messages.complain(L"\"" + name + L"\" is not complete: " + text);
                },
            .failed = [this](const String& text) { m_messages.complain(text); }};
}

Expected<unsigned short, String> PictureListening::start(const Wx::Legacy::SocketAddress& address)
{
    Expected<unsigned short, String> port = m_server.start(address);
    if (port)
        m_messages.report(L"Listening for pictures at port " + Wx::toString(wxString() << *port) + L".");
    else
        m_messages.complain(port.error());
    return port;
}

void PictureListening::onReceived(const ArrivedPicture& arrived)
{
    const auto known = m_pictures.find(arrived.name);
    if (known != m_pictures.end()) {
        m_workspace.setPicture(known->second, arrived.picture);
    } else {
        const PictureId id = m_workspace.add({}, arrived.picture, PictureOrigin::SENDER);
        m_pictures.emplace(arrived.name, id);
        m_workspace.setCurrent(id);
        m_messages.report(L"Receiving \"" + arrived.name + L"\", " + arrived.picture->sizeText() +
                          L" pixels.");
    }
    onProgressed(arrived.name, arrived.isComplete ? 1.0f : arrived.progress);
}

void PictureListening::onProgressed(const String& name, float progress)
{
    if (progress >= 1.0f)
        m_progressOf.erase(name);
    else
        m_progressOf[name] = progress;
    showProgress();
}

void PictureListening::onClosed(const String& name)
{
    const auto known = m_pictures.find(name);
    if (known == m_pictures.end())
        return;
    const PictureId id = known->second;
    m_pictures.erase(known);
    m_progressOf.erase(name);
    showProgress();
    m_workspace.close(id);
}

// A picture that the user has closed must not come back with its next rectangle.
void PictureListening::forgetClosed()
{
    std::erase_if(m_pictures, [this](const auto& entry) {
        if (m_workspace.find(entry.second) != nullptr)
            return false;
        m_server.forget(entry.first);
        m_progressOf.erase(entry.first);
        return true;
    });
    showProgress();
}

Optional<float> PictureListening::progress() const
{
    const auto least = std::ranges::min_element(m_progressOf, {}, &std::pair<const String, float>::second);
    return least == m_progressOf.end() ? Optional<float>() : least->second;
}

void PictureListening::showProgress()
{
    const Optional<float> least = progress();
    if (!least)
        return m_progress.reset();
    if (!m_progress)
        m_progress.emplace(Wx::getWindowNativeHandle(&m_window));
    m_progress->setProgress(*least);
}

Expected<Wx::Legacy::SocketAddress, String> parseListeningAddress(const String& text)
{
    using Wx::Legacy::SocketAddress;
    const wxString all = Wx::toWxString(text);
    const wxString host = all.Contains(L":") ? all.BeforeLast(L':') : wxString();
    const wxString digits = all.AfterLast(L':');
    unsigned long port = 0;
    // The conversion alone takes blanks and signs, too.
    if (digits.find_first_not_of(L"0123456789") != wxString::npos || !digits.ToCULong(&port) || port > 0xffff)
        return Unexpected{L"\"" + text + L"\" is no port. Ports are numbers up to 65535."};
    const auto number = static_cast<unsigned short>(port);
    if (!all.Contains(L":"))
        return SocketAddress::localhost(number);
    if (host == L"*")
        return SocketAddress::anyAddress(number);
    SocketAddress address(Wx::toString(host), number);
    if (!address.hasHost())
        return Unexpected{L"There is no computer named \"" + Wx::toString(host) + L"\"."};
    return address;
}

} // namespace Nolvex::Viewer
