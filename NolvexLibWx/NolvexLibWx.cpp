// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Lib.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/detail/ModalDialogs.h"
#include "NolvexLibWx/detail/NativeMessageDialog.h"
#include "NolvexLibWx/detail/ScreenQuestion.h"
#include "NolvexLibWx/detail/WindowDisabling.h"
#include "NolvexLibWx/platform/ToolkitModule.h"

#include <wx/app.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>
#include <wx/timer.h>

#include <utility>
#include <vector>

namespace Nolvex {

namespace {

class NolvexApp : public wxApp
{
public:
    ~NolvexApp() override = default;

    // wxWidgets needs the name for each window that it makes. Without a name it asks the system for the path
    // of the program each time, which takes a tenth of the time in which GTK makes a window.
    bool Initialize(int& count, wxChar** arguments) override
    {
        if (!wxApp::Initialize(count, arguments))
            return false;
        SetAppDisplayName(GetAppDisplayName());
        SetAppName(GetAppName());
        return true;
    }

    // The main loop cannot return while a dialog for another thread is on the screen.
    void ExitMainLoop() override
    {
        NativeMessageDialog::cancelShown();
        wxApp::ExitMainLoop();
    }
};

// wxWidgets does its idle processing in its own event loop. In a host that pumps the window messages itself,
// pending deletions and UI updates would wait for ever.
class ProcessEventsTimer : public wxTimer
{
public:
    void Notify() override { wxAppConsoleBase::GetInstance()->ProcessIdle(); }
};

constexpr int PROCESS_EVENTS_PERIOD_MS = 2000;

std::int32_t g_startCount = 0;

// Tells in a debugger that a process died while starting or stopping. The compiler may not remove a volatile.
volatile std::uint8_t g_inTransition = 0;

// This is no smart pointer: if the host forgets to stop the library, a smart pointer would delete the timer
// at the end of the process, after wxWidgets is gone.
ProcessEventsTimer* g_processEventsTimer = nullptr;

void replaceProcessEventsTimer(ProcessEventsTimer* timer)
{
    delete std::exchange(g_processEventsTimer, timer);
}

void installApplication()
{
    if (wxAppConsoleBase::GetInstance() != nullptr)
        return;
    auto* app = new NolvexApp;
    app->SetClassName("NolvexApp");
    wxAppConsoleBase::SetInstance(app);
}

// Remembers only the handlers that wxImage keeps: wxImage deletes a second handler of the same type.
void addImageHandler(wxImageHandler* handler, std::vector<wxString>& added)
{
    const wxString name = handler->GetName();
    const bool isNew = wxImage::FindHandler(handler->GetType()) == nullptr;
    // wxImage owns it. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    wxImage::AddHandler(handler);
    if (isNew)
        added.push_back(name);
}

// Returns the names of the handlers that the host had not added before.
std::vector<wxString> addImageHandlers()
{
    std::vector<wxString> added;
    addImageHandler(new wxPNGHandler, added);
    addImageHandler(new wxJPEGHandler, added);
    addImageHandler(new wxICOHandler, added);
    addImageHandler(new wxBMPHandler, added);
    addImageHandler(new wxGIFHandler, added);
    addImageHandler(new wxTIFFHandler, added);
    addImageHandler(new wxTGAHandler, added);
    return added;
}

// When wxInitialize fails, it still counts the start, deletes the application object and leaves lists behind.
// All of this is undone, so that a host can try again when it has a display.
[[noreturn]] void giveUpStart(const std::vector<wxString>& imageHandlers, bool wasLogging)
{
    wxUninitialize();
    wxDeleteStockLists();
    wxDELETE(wxTheColourDatabase);
    for (const wxString& name : imageHandlers)
        wxImage::RemoveHandler(name);
    wxLog::EnableLogging(wasLogging);
    Lib::shutdown();
    g_inTransition = 0;
    throw Exception("The graphical interface could not be started. Is a display available?");
}

bool isApplicationType(LibWx::ApplicationType type)
{
    switch (type) {
    case LibWx::ApplicationType::APPLICATION:
    case LibWx::ApplicationType::PLUGIN:
    case LibWx::ApplicationType::HOST_INITIALISED:
        return true;
    }
    return false;
}

// Window disabling is installed first, because OnInit may show a dialog, which disables the other windows.
void initialiseApplication(LibWx::ApplicationType type)
{
    WindowDisabling::install();
    ModalDialogs::install();
    try {
        if (type != LibWx::ApplicationType::HOST_INITIALISED)
            wxAppConsoleBase::GetInstance()->CallOnInit();
    } catch (...) {
        ModalDialogs::uninstall();
        WindowDisabling::uninstall();
        throw;
    }
}

// Other threads may ask the main thread for message dialogs while it processes wxWidgets' pending events.
void acceptDialogCalls()
{
    NativeMessageDialog::mainThreadCalls().open(
        [] { wxTheApp->CallAfter([] { NativeMessageDialog::mainThreadCalls().serveNext(); }); });
}

// Threads that wait for a dialog are released, so that the main thread can wait for the end of those threads.
void refuseDialogCalls()
{
    NativeMessageDialog::mainThreadCalls().close();
}

// Accepts the calls while a main loop runs. The end of an inner loop leaves them to the outer loop.
class DialogCallsOfLoop : private Noncopyable
{
public:
    DialogCallsOfLoop()
    {
        acceptDialogCalls();
        ++s_loops;
    }

    ~DialogCallsOfLoop()
    {
        if (--s_loops == 0)
            refuseDialogCalls();
    }

private:
    static inline int s_loops = 0;
};

void startFirst(LibWx::ApplicationType type)
{
    Lib::startup();
    const bool wasLogging = wxLog::EnableLogging(false);
    installApplication();
    const std::vector<wxString> imageHandlers = addImageHandlers();
    Platform::announceToolkitModule();
    if (!wxInitialize())
        giveUpStart(imageHandlers, wasLogging);
    wxSocketBase::Initialize();

    // Users report this number as a part of the message, so it stays the same when lines move.
    if (!isApplicationType(type))
        Detail::throwStopException("NolvexLibWx", 177);
    initialiseApplication(type);

    replaceProcessEventsTimer(new ProcessEventsTimer);
    g_processEventsTimer->Start(PROCESS_EVENTS_PERIOD_MS, wxTIMER_CONTINUOUS);
    acceptDialogCalls();
}

void stopLast()
{
    Wx::Detail::ScreenQuestion::closeAll();
    refuseDialogCalls();
    g_processEventsTimer->Stop();
    replaceProcessEventsTimer(nullptr);

    wxAppConsole* app = wxAppConsoleBase::GetInstance();
    app->ProcessIdle();
    app->OnExit();
    app->ExitMainLoop();

    wxSocketBase::Shutdown();
    ModalDialogs::uninstall();
    wxUninitialize();
    WindowDisabling::uninstall();
    Lib::shutdown();
}

} // namespace

void LibWx::startup(ApplicationType type)
{
    g_inTransition = 1;
    if (g_startCount == 0)
        startFirst(type);
    ++g_startCount;
    g_inTransition = 0;
}

void LibWx::shutdown() noexcept
{
    g_inTransition = 1;
    if (--g_startCount == 0)
        stopLast();
    g_inTransition = 0;
}

bool LibWx::isStarted()
{
    return g_startCount > 0;
}

int LibWx::runEventLoop()
{
    const DialogCallsOfLoop calls;
    return wxAppConsoleBase::GetInstance()->OnRun();
}

void LibWx::stopEventLoop()
{
    NativeMessageDialog::cancelShown();
    wxAppConsoleBase::GetInstance()->ExitMainLoop();
}

void LibWx::processWxWidgetsPendingEvents()
{
    wxAppConsoleBase::GetInstance()->ProcessPendingEvents();
}

void LibWx::processAllPendingEvents()
{
    processWxWidgetsPendingEvents();
    Lib::processPendingEvents();
}

} // namespace Nolvex
