// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/Noncopyable.h"

#include <condition_variable>
#include <memory>
#include <string>
#include <thread>

using GCancellable = struct _GCancellable;
using GDBusConnection = struct _GDBusConnection;

namespace Nolvex::Platform {

struct LauncherProgress
{
    bool visible = false;
    double fraction = 0; ///< 0 to 1

    bool operator==(const LauncherProgress&) const = default;
};

/// The program's icon in the dock of a Linux desktop. Docks listen on the session bus for the signal "Update"
/// of com.canonical.Unity.LauncherEntry.
///
/// The icon shows one progress. If several owners want to show theirs, the most recent change wins; when its
/// owner shows no progress any more, the icon shows the change before.
///
/// A thread of its own talks to the bus, so that neither the callers nor their event loops matter. The thread
/// sends the next progress when the bus has read the last. If callers are faster than the bus, only the
/// latest progress is sent.
class LauncherEntry : private Noncopyable
{
public:
    /// Returns the program's entry, which lives until its last user is gone. Returns null if there is no
    /// session bus. No bus is started.
    static std::shared_ptr<LauncherEntry> ofProgram();

    /// `address` is the address of the session bus.
    explicit LauncherEntry(std::string address);
    /// Gives up after a moment if the bus does not read the last progress.
    ~LauncherEntry();

    void show(const void* owner, LauncherProgress progress);

    void remove(const void* owner);

private:
    struct Shown
    {
        const void* owner;
        LauncherProgress progress;
    };

    LauncherProgress current() const;
    void update();
    void run();
    void sendUpdates(GDBusConnection* connection);

    const std::string m_address;
    const std::shared_ptr<GCancellable> m_cancellable;
    Mutex m_mutex; // guards the members below
    std::condition_variable m_changed;
    Array<Shown> m_shown; // the most recent change last
    LauncherProgress m_next;
    bool m_mustSend = false;
    bool m_connected = false;
    bool m_closing = false;
    std::thread m_thread; // started last, because it uses the other members
};

} // namespace Nolvex::Platform
