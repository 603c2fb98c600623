// SPDX-License-Identifier: MIT
#include "NolvexLibWx/NolvexLibWx.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/Lib.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/WindowDisabling.h"
#include "NolvexLibWx/platform/ToolkitModule.h"

#include <wx/app.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>
#include <wx/timer.h>

#include <utility>

namespace Nolvex {

namespace {

class NolvexApp : public wxApp
{
public:
    ~NolvexApp() override = default;
};

// A host that pumps its window messages itself never becomes idle in the toolkit's eyes; pending deletions
// and UI updates would wait for ever.
class ProcessEventsTimer : public wxTimer
{
public:
    void Notify() override { wxAppConsoleBase::GetInstance()->ProcessIdle(); }
};

constexpr int PROCESS_EVENTS_PERIOD_MS = 2000;

std::int32_t g_startCount = 0;

// For whoever looks at a process that died in between; volatile, or the compiler drops what nobody here
// reads.
volatile std::uint8_t g_inTransition = 0;

// Owned, but by hand: a smart pointer would delete it at process exit, after the toolkit, when the host
// forgot to stop.
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

void addImageHandlers()
{
    wxImage::AddHandler(new wxPNGHandler);
    wxImage::AddHandler(new wxJPEGHandler);
    wxImage::AddHandler(new wxICOHandler);
    wxImage::AddHandler(new wxBMPHandler);
    wxImage::AddHandler(new wxGIFHandler);
    wxImage::AddHandler(new wxTIFFHandler);
    // The toolkit's list owns them. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    wxImage::AddHandler(new wxTGAHandler);
}

// The toolkit counts a failed start too, drops the application object and leaves lists behind: take it all
// back, so that a host that finds a display later can try again.
[[noreturn]] void giveUpStart()
{
    wxUninitialize();
    wxDeleteStockLists();
    wxDELETE(wxTheColourDatabase);
    wxImage::CleanUpHandlers();
    WindowDisabling::uninstall();
    Lib::shutdown();
    g_inTransition = 0;
    throw Exception("The graphical interface could not be started. Is a display available?");
}

void startFirst(LibWx::ApplicationType type)
{
    Lib::startup();
    WindowDisabling::install();
    wxLog::EnableLogging(false);
    installApplication();
    addImageHandlers();
    Platform::announceToolkitModule();
    if (!wxInitialize())
        giveUpStart();
    wxSocketBase::Initialize();

    switch (type) {
    case LibWx::ApplicationType::APPLICATION:
    case LibWx::ApplicationType::PLUGIN:
        wxAppConsoleBase::GetInstance()->CallOnInit();
        break;
    case LibWx::ApplicationType::HOST_INITIALISED:
        break;
    default:
        // The number is part of the message that users report; it stays when lines move.
        Detail::throwStopException("NolvexLibWx", 177);
    }

    replaceProcessEventsTimer(new ProcessEventsTimer);
    g_processEventsTimer->Start(PROCESS_EVENTS_PERIOD_MS, wxTIMER_CONTINUOUS);
}

void stopLast()
{
    g_processEventsTimer->Stop();
    replaceProcessEventsTimer(nullptr);

    wxAppConsole* app = wxAppConsoleBase::GetInstance();
    app->ProcessIdle();
    app->OnExit();
    app->ExitMainLoop();

    wxSocketBase::Shutdown();
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
    return wxAppConsoleBase::GetInstance()->OnRun();
}

void LibWx::stopEventLoop()
{
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
