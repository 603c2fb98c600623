// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Noncopyable.h"
#include "support/TemporaryFolder.h"

#include <gio/gio.h>

#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>

namespace Nolvex::Tests {

/// A bus of the test's own, which starts no services.
class PrivateBus : private Noncopyable
{
public:
    PrivateBus();
    ~PrivateBus();

    const std::string& address() const { return m_address; }

    /// Kills the bus, so that every connection ends without a farewell.
    void kill();

private:
    TemporaryFolder m_folder;
    GSubprocess* m_daemon;
    std::string m_address;
};

/// A program on the bus that plays the part of the desktop portal, on a thread of its own. The test decides
/// how each call of Screenshot is answered.
class FakePortal : private Noncopyable
{
public:
    static constexpr char NAME[] = "org.freedesktop.portal.Desktop";
    static constexpr char PATH[] = "/org/freedesktop/portal/desktop";

    /// Returns a handle that no portal would form of the caller's name and token.
    static std::string otherHandle(int number);

    /// A call of Screenshot. The functions are called on the thread of the portal.
    class Call
    {
    public:
        Call(FakePortal& portal, GDBusMethodInvocation* invocation)
            : m_portal(portal), m_invocation(invocation)
        {}

        /// Returns the handle that a portal forms of the caller's name and token.
        std::string handle() const;
        std::string caller() const;
        /// Returns true if the options are those of a question without further dialogs.
        bool isPlain() const;

        /// Makes an object that can be closed, and returns the handle to the caller.
        void giveHandle(const std::string& handle);
        void fail(const char* error);
        /// Waits until the caller has read all that was sent to it.
        void waitUntilRead();
        /// Emits the signal. `values` are the values of the signal, such as "(1, @a{sv} {})".
        void respond(const std::string& handle, const std::string& values);
        void respondWithUri(const std::string& uri);

    private:
        FakePortal& m_portal;
        GDBusMethodInvocation* m_invocation;
    };

    using Answer = std::function<void(Call)>;

    /// `name` is the name that this program owns on the bus.
    FakePortal(const std::string& busAddress, Answer answer, const char* name = NAME);
    ~FakePortal();

    /// Emits the signal of an answer to the caller.
    void respond(const std::string& caller, const std::string& handle, const std::string& values);

    int calls() const { return m_calls; }

    /// Calls the function, on the thread of the portal, when a question is withdrawn, and returns to the
    /// caller afterwards.
    void whenClosing(std::function<void()> closing);

    /// Returns the handles of the questions that were withdrawn.
    Array<std::string> closed() const;

    /// Returns the connection for signals of the test's own.
    GDBusConnection* connection() const { return m_connection; }

private:
    static void onMethod(GDBusConnection* connection, const char* sender, const char* path,
                         const char* interface, const char* method, GVariant* parameters,
                         GDBusMethodInvocation* invocation, gpointer self);

    void run(const std::string& busAddress, const std::string& name, std::promise<void>& ready);
    void registerObject(const std::string& path, GDBusInterfaceInfo* interface);

    Answer m_answer;
    GMainContext* m_context;
    GMainLoop* m_loop;
    GDBusNodeInfo* m_interfaces;
    GDBusConnection* m_connection = nullptr;
    std::atomic<int> m_calls = 0;
    mutable std::mutex m_mutex; // guards the next two members
    Array<std::string> m_closed;
    std::function<void()> m_closing;
    std::thread m_thread;
};

} // namespace Nolvex::Tests
