// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/TaskbarProgress.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "apps/viewer/Messages.h"
#include "apps/viewer/Workspace.h"
#include "apps/viewer/wire/PictureServer.h"

#include <map>

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

/// Puts pictures that other programs send into the workspace. A picture is shown when its first pixels have
/// arrived; later ones change it in its place. How much of a picture has arrived is shown on the task bar
/// button of the window.
class PictureListening : private Noncopyable
{
public:
    /// The window and the workspace must outlive this object.
    PictureListening(wxWindow& window, Workspace& workspace, Messages messages);

    /// Begins to listen at an address, and tells the port. Returns the port, or a sentence that says why the
    /// viewer does not listen.
    Expected<unsigned short, String> start(const Wx::Legacy::SocketAddress& address);

    void stop() { m_server.stop(); }

    /// Returns the fraction of the picture of which the least has arrived, of those that are incomplete.
    Optional<float> progress() const;

private:
    PictureServer::Callbacks callbacks();
    void onReceived(const ArrivedPicture& arrived);
    void onProgressed(const String& name, float progress);
    void onClosed(const String& name);
    void forgetClosed();
    void showProgress();

    wxWindow& m_window;
    Workspace& m_workspace;
    Messages m_messages;
    std::map<String, PictureId> m_pictures;
    std::map<String, float> m_progressOf;
    Optional<Wx::TaskbarProgress> m_progress;
    PictureServer m_server;
};

/// Reads "PORT" or "HOST:PORT". A port alone stands for this computer only. The error is a sentence.
Expected<Wx::Legacy::SocketAddress, String> parseListeningAddress(const String& text);

} // namespace Nolvex::Viewer
