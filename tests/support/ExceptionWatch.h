// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace Nolvex::Tests {

/// Takes the place of the application for one exception, to see that the exception reaches
/// wxApp::OnExceptionInMainLoop. On Windows the function of wxApp itself would show a dialog.
class ExceptionWatch
{
public:
    ExceptionWatch() : m_application(wxApp::GetInstance())
    {
        m_replacement.emplace(*this);
        // The constructor of wxApp has made the replacement the application.
        wxApp::SetInstance(m_application);
    }

    ExceptionWatch(const ExceptionWatch&) = delete;
    ExceptionWatch& operator=(const ExceptionWatch&) = delete;

    ~ExceptionWatch()
    {
        m_replacement.reset(); // leaves no application
        wxApp::SetInstance(m_application);
    }

    /// Throws an exception with the text.
    [[noreturn]] void fail(const std::string& text)
    {
        wxApp::SetInstance(&*m_replacement);
        throw std::runtime_error(text);
    }

    /// Returns the text of the exception that has reached the application, if an exception has.
    const std::string& caught() const { return m_caught; }

private:
    class Replacement : public wxApp
    {
    public:
        explicit Replacement(ExceptionWatch& watch) : m_watch(watch) {}

        bool OnExceptionInMainLoop() override
        {
            m_watch.take();
            return true; // the event loop goes on
        }

    private:
        ExceptionWatch& m_watch;
    };

    void take()
    {
        wxApp::SetInstance(m_application);
        try {
            throw;
        } catch (const std::exception& exception) {
            m_caught = exception.what();
        }
    }

    wxAppConsole* m_application;
    std::optional<Replacement> m_replacement;
    std::string m_caught;
};

} // namespace Nolvex::Tests
