// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibWx/ScreenCaptureFailure.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>

using GAsyncResult = struct _GAsyncResult;
using GCancellable = struct _GCancellable;
using GDBusConnection = struct _GDBusConnection;
using GError = struct _GError;
using GMainContext = struct _GMainContext;
using GSource = struct _GSource;
using GVariant = struct _GVariant;

namespace Nolvex::Platform {

/// One call of the portal's method Screenshot, and the wait for the signal that brings the answer. Everything
/// happens on the calling thread, which has an event queue of its own as long as the object lives. An object
/// asks once.
class PortalRequest : private Noncopyable
{
public:
    using Answer = Expected<std::string, Wx::ScreenCaptureFailure>;

    /// Any thread may cancel `withdrawal`, which ends the wait with FAILED.
    PortalRequest(std::chrono::milliseconds limit, GCancellable* withdrawal);
    ~PortalRequest();

    /// Returns the address of the file with the picture.
    Answer ask(const std::string& busAddress);

    /// Returns the address of a file with a picture that the portal has named after `ask` had given up, or
    /// nullopt if there is none.
    const Optional<std::string>& latePicture() const { return m_latePicture; }

private:
    using Response = std::shared_ptr<GVariant>;

    template<class Step>
    void attempt(Step step) noexcept;
    void watch(GSource* source);
    void settle(Answer answer);
    void onConnected(GDBusConnection* connection);
    void subscribe();
    void call();
    void onReturned(GDBusConnection* connection, GAsyncResult* result);
    void onHandle(const std::string& handle);
    void onCallFailed(const GError& error);
    void onResponse(const std::string& path, const Response& response);
    void answerWith(GVariant* response);
    void closeQuestion();
    void disconnect();

    GMainContext* const m_context;
    const std::shared_ptr<GCancellable> m_calls; // cancelled when there is an answer
    Array<std::shared_ptr<GSource>> m_sources;
    std::shared_ptr<GDBusConnection> m_connection;
    Array<unsigned> m_subscriptions;
    unsigned long m_closedHandler = 0;
    std::string m_token;
    std::string m_expectedHandle;
    Optional<std::string> m_handle; // as the portal has returned it
    Array<std::pair<std::string, Response>> m_early;
    int m_pendingCalls = 0;
    bool m_isQuestionOpen = false;
    Optional<Answer> m_answer;
    Optional<std::string> m_latePicture;
};

} // namespace Nolvex::Platform
