// SPDX-License-Identifier: MIT
// Each test runs in a process of its own, since some leave the library counted wrongly or wxWidgets half
// started.
#include "NolvexLibWx/NolvexLibWx.h"

#include "NolvexLib/Exception.h"
#include "NolvexLib/GuiDisabler.h"
#include "NolvexLib/Lib.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/ScreenCaptureRequest.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "support/NativeTraits.h"
#include "support/ProcessResources.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/socket.h>
#include <wx/stdpaths.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

using Nolvex::LibWx::ApplicationType;
using Nolvex::LibWx::isStarted;
using Nolvex::LibWx::shutdown;
using Nolvex::LibWx::startup;

namespace {

struct HostApp : wxApp
{
    bool OnInit() override
    {
        ++initCount;
        return true;
    }

    static inline int initCount = 0;
};

void installHostApp(const char* className)
{
    auto* app = new HostApp;
    app->SetClassName(className);
    wxApp::SetInstance(app);
}

// Records what the library calls when it starts and stops, and when wxWidgets' sockets can be used.
struct RecordingApp : wxApp
{
    bool Initialize(int& count, wxChar** arguments) override
    {
        order += "Initialize" + sockets();
        return wxApp::Initialize(count, arguments);
    }

    bool OnInit() override
    {
        order += "OnInit" + sockets();
        return true;
    }

    bool ProcessIdle() override
    {
        order += "ProcessIdle ";
        return wxApp::ProcessIdle();
    }

    int OnExit() override
    {
        order += "OnExit" + sockets();
        return wxApp::OnExit();
    }

    void ExitMainLoop() override
    {
        order += "ExitMainLoop ";
        wxApp::ExitMainLoop();
    }

    void CleanUp() override
    {
        order += "CleanUp" + sockets();
        wxApp::CleanUp();
    }

    static std::string sockets() { return wxSocketBase::IsInitialized() ? "(sockets) " : " "; }

    static inline std::string order;
};

// Records whether the core library runs when wxWidgets starts and stops.
struct CoreAskingApp : wxApp
{
    bool Initialize(int& count, wxChar** arguments) override
    {
        answers.push_back(isCoreStarted());
        return wxApp::Initialize(count, arguments);
    }

    void CleanUp() override
    {
        wxApp::CleanUp();
        answers.push_back(isCoreStarted());
    }

    static bool isCoreStarted()
    {
        return Nolvex::Lib::postToMainThread([] {});
    }

    static inline std::vector<bool> answers;
};

// Records when wxWidgets' idle processing begins. GTK calls it more often, but immediately after another
// call, and such calls count as one.
struct IdleRecordingApp : wxApp
{
    using Clock = std::chrono::steady_clock;

    bool ProcessIdle() override
    {
        const Clock::time_point now = Clock::now();
        if (now - last > std::chrono::milliseconds(500))
            times.push_back(now);
        last = now;
        return wxApp::ProcessIdle();
    }

    static inline std::vector<Clock::time_point> times;
    static inline Clock::time_point last;
};

// A handler of the same type as a handler of the library, but with another name.
struct HostHandler : wxPNGHandler
{
    HostHandler() { SetName("the host's"); }
};

// Returns how many windows a new GuiDisabler disables. Without the library's hook it disables none.
bool disablesWindows()
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "disabled");
    frame->Show();
    bool isDisabled = false;
    {
        const Nolvex::GuiDisabler disabler;
        isDisabled = !frame->IsEnabled();
    }
    delete frame;
    return isDisabled;
}

std::vector<std::string> imageHandlerNames()
{
    std::vector<std::string> names;
    for (const wxObject* handler : wxImage::GetHandlers())
        names.emplace_back(static_cast<const wxImageHandler*>(handler)->GetName().utf8_str());
    return names;
}

} // namespace

TEST(ApplicationTypeTest, types_haveTheseValues)
{
    EXPECT_EQ(static_cast<int>(ApplicationType::APPLICATION), 0);
    EXPECT_EQ(static_cast<int>(ApplicationType::PLUGIN), 1);
    EXPECT_EQ(static_cast<int>(ApplicationType::HOST_INITIALISED), 2);
}

TEST(NolvexLibWxTest, isStarted_beforeStartup_isFalse)
{
    EXPECT_FALSE(isStarted());
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), nullptr);
}

// Without a name of its own wxWidgets looks for the program's path again and again.
TEST(NolvexLibWxTest, application_isNamedAfterTheProgram)
{
    startup(ApplicationType::APPLICATION);
    const wxString program = wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetName();
    EXPECT_EQ(wxTheApp->GetAppName(), program);
    EXPECT_EQ(wxTheApp->GetAppDisplayName(), program.Capitalize());
    shutdown();
}

TEST(NolvexLibWxTest, startup_withoutHostApplication_makesANolvexApp)
{
    startup(ApplicationType::APPLICATION);
    ASSERT_NE(wxAppConsoleBase::GetInstance(), nullptr);
    EXPECT_EQ(wxAppConsoleBase::GetInstance()->GetClassName(), "NolvexApp");
    EXPECT_TRUE(isStarted());
    EXPECT_TRUE(wxSocketBase::IsInitialized());
    EXPECT_FALSE(wxLog::IsEnabled());
    shutdown();
    EXPECT_FALSE(isStarted());
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), nullptr);
}

TEST(NolvexLibWxTest, startup_registersTheImageHandlersInOrder)
{
    startup(ApplicationType::APPLICATION);
    const std::vector<std::string> expected{
        "PNG file", "JPEG file", "Windows icon file", "Windows bitmap file",
        "GIF file", "TIFF file", "TGA file"};
    EXPECT_EQ(imageHandlerNames(), expected);
    shutdown();
}

TEST(NolvexLibWxTest, twoStartupsAndOneShutdown_leaveTheToolkitRunning)
{
    startup(ApplicationType::APPLICATION);
    const wxAppConsole* app = wxAppConsoleBase::GetInstance();
    startup(ApplicationType::APPLICATION);
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), app);
    shutdown();
    EXPECT_TRUE(isStarted());
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), app);
    shutdown();
    EXPECT_FALSE(isStarted());
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), nullptr);
}

TEST(NolvexLibWxTest, nestedStartup_ignoresItsType)
{
    startup(ApplicationType::APPLICATION);
    EXPECT_NO_THROW(startup(static_cast<ApplicationType>(3)));
    shutdown();
    shutdown();
}

TEST(NolvexLibWxTest, shutdownWithoutStartup_makesTheNextStartupOnlyCount)
{
    shutdown();
    EXPECT_FALSE(isStarted());
    startup(ApplicationType::APPLICATION);
    EXPECT_FALSE(isStarted());
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), nullptr);

    startup(ApplicationType::APPLICATION);
    EXPECT_TRUE(isStarted());
    EXPECT_NE(wxAppConsoleBase::GetInstance(), nullptr);
    shutdown();
}

TEST(NolvexLibWxTest, startup_withHostApplication_usesItAndLeavesItsName)
{
    installHostApp("TheHost");
    const wxAppConsole* host = wxAppConsoleBase::GetInstance();
    startup(ApplicationType::PLUGIN);
    EXPECT_EQ(wxAppConsoleBase::GetInstance(), host);
    EXPECT_EQ(wxAppConsoleBase::GetInstance()->GetClassName(), "TheHost");
    shutdown();
}

TEST(NolvexLibWxTest, startup_ofTypesApplicationAndPlugin_callsOnInit)
{
    for (const ApplicationType type : {ApplicationType::APPLICATION, ApplicationType::PLUGIN}) {
        HostApp::initCount = 0;
        installHostApp("TheHost");
        startup(type);
        EXPECT_EQ(HostApp::initCount, 1);
        shutdown();
    }
}

TEST(NolvexLibWxTest, startup_ofTypeHostInitialised_leavesOnInitToTheHost)
{
    installHostApp("TheHost");
    startup(ApplicationType::HOST_INITIALISED);
    EXPECT_EQ(HostApp::initCount, 0);
    EXPECT_TRUE(isStarted());
    shutdown();
}

TEST(NolvexLibWxTest, hostThatInitialisedTheToolkit_keepsItAfterTheLastShutdown)
{
    installHostApp("TheHost");
    ASSERT_TRUE(wxInitialize());
    const wxAppConsole* host = wxAppConsoleBase::GetInstance();
    for (int i = 0; i < 3; ++i) {
        startup(ApplicationType::HOST_INITIALISED);
        shutdown();
        EXPECT_EQ(wxAppConsoleBase::GetInstance(), host);
    }
    auto* frame = new wxFrame(nullptr, wxID_ANY, "still usable");
    frame->Show();
    frame->Destroy();
    wxAppConsoleBase::GetInstance()->ProcessIdle();
    wxUninitialize();
}

TEST(NolvexLibWxTest, startup_ofAnInvalidType_raisesTheStopExceptionUncounted)
{
    try {
        startup(static_cast<ApplicationType>(3));
        ADD_FAILURE() << "not stopped";
    } catch (const Nolvex::StopException& stop) {
        EXPECT_EQ(stop.file(), "NolvexLibWx");
        EXPECT_EQ(stop.line(), 177);
    }
    EXPECT_FALSE(isStarted());
    EXPECT_NE(wxAppConsoleBase::GetInstance(), nullptr)
        << "wxWidgets is initialised before the type is checked";
    EXPECT_FALSE(disablesWindows());
    // A host that continues to run uninitialises wxWidgets itself.
    wxSocketBase::Shutdown();
    wxUninitialize();
    Nolvex::Lib::shutdown();
}

TEST(NolvexLibWxTest, startup_again_initialisesEverythingAnew)
{
    for (int i = 0; i < 3; ++i) {
        startup(ApplicationType::APPLICATION);
        EXPECT_NE(wxAppConsoleBase::GetInstance(), nullptr);
        EXPECT_EQ(imageHandlerNames().size(), 7u);
        EXPECT_TRUE(Nolvex::Lib::postToMainThread([] {}));
        shutdown();
        EXPECT_FALSE(Nolvex::Lib::postToMainThread([] {}));
    }
}

TEST(NolvexLibWxTest, applicationThatRaisesInOnInit_leavesNoWindowsDisabled)
{
    struct RaisingApp : wxApp
    {
        bool OnInit() override
        {
            EXPECT_TRUE(disablesWindows());
            throw Nolvex::Exception("no");
        }
    };

    wxApp::SetInstance(new RaisingApp);
    EXPECT_THROW(startup(ApplicationType::APPLICATION), Nolvex::Exception);
    EXPECT_FALSE(isStarted());
    EXPECT_FALSE(disablesWindows());
    wxSocketBase::Shutdown();
    wxUninitialize();
    Nolvex::Lib::shutdown();
}

TEST(NolvexLibWxTest, firstStartup_startsWxWidgetsThenItsSocketsThenTheApplication)
{
    wxApp::SetInstance(new RecordingApp);
    startup(ApplicationType::APPLICATION);
    EXPECT_EQ(RecordingApp::order, "Initialize OnInit(sockets) ");
    shutdown();
}

TEST(NolvexLibWxTest, lastShutdown_idlesExitsEndsTheLoopAndStopsTheSocketsBeforeWxWidgets)
{
    wxApp::SetInstance(new RecordingApp);
    startup(ApplicationType::APPLICATION);
    startup(ApplicationType::APPLICATION);
    RecordingApp::order.clear();
    shutdown();
    EXPECT_EQ(RecordingApp::order, "");
    shutdown();
    EXPECT_EQ(RecordingApp::order, "ProcessIdle OnExit(sockets) ExitMainLoop CleanUp ");
}

TEST(NolvexLibWxTest, coreLibrary_startsBeforeWxWidgetsAndStopsAfterIt)
{
    EXPECT_FALSE(CoreAskingApp::isCoreStarted());
    wxApp::SetInstance(new CoreAskingApp);
    startup(ApplicationType::APPLICATION);
    shutdown();
    EXPECT_EQ(CoreAskingApp::answers, std::vector<bool>({true, true}));
    EXPECT_FALSE(CoreAskingApp::isCoreStarted());
}

TEST(NolvexLibWxTest, startup_tellsTheToolkitItsModule)
{
    startup(ApplicationType::APPLICATION);
    EXPECT_TRUE(Nolvex::Tests::toolkitKnowsItsModule());
    shutdown();
}

TEST(NolvexLibWxTest, aThousandStartsAndStops_growNothing)
{
    const auto cycle = [] {
        startup(ApplicationType::APPLICATION);
        shutdown();
    };
    for (int i = 0; i < 100; ++i)
        cycle();
    const std::size_t handles = Nolvex::Tests::openHandles();
    const std::size_t memory = Nolvex::Tests::privateMemory();
    for (int i = 0; i < 900; ++i)
        cycle();
    EXPECT_LE(Nolvex::Tests::openHandles(), handles + 2);
#ifndef NOLVEX_SANITIZED // a sanitizer keeps freed memory back; leaks are its own affair then
    // wxWidgets itself keeps some 200 bytes in each cycle, and the smallest object that the library could
    // leak is larger.
    EXPECT_LT(Nolvex::Tests::privateMemory(), memory + 900 * 512);
#else
    (void)memory;
#endif
}

TEST(NolvexLibWxTest, processAllPendingEvents_runsTheToolkitsFirstAndThenTheCoresEvents)
{
    startup(ApplicationType::APPLICATION);
    std::string order;
    ASSERT_TRUE(Nolvex::Lib::postToMainThread([&] { order += "core "; }));
    wxTheApp->CallAfter([&] { order += "toolkit "; });

    Nolvex::LibWx::processWxWidgetsPendingEvents();
    EXPECT_EQ(order, "toolkit ");
    wxTheApp->CallAfter([&] { order += "again "; });
    Nolvex::LibWx::processAllPendingEvents();
    EXPECT_EQ(order, "toolkit again core ");
    shutdown();
}

TEST(NolvexLibWxTest, runEventLoop_runsUntilStopped)
{
    startup(ApplicationType::APPLICATION);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "loop");
    frame->Show();
    bool ran = false;
    wxTheApp->CallAfter([&] {
        ran = true;
        frame->Destroy();
        Nolvex::LibWx::stopEventLoop();
    });
    EXPECT_EQ(Nolvex::LibWx::runEventLoop(), 0);
    EXPECT_TRUE(ran);
    shutdown();
}

TEST(NolvexLibWxTest, hostLoopWithoutIdleProcessing_getsItFromTheTimer)
{
    startup(ApplicationType::APPLICATION);

    // wxWidgets deletes a top-level window during idle processing. Under Windows only the timer causes idle
    // processing in this test.
    struct Watched : wxFrame
    {
        explicit Watched(bool& gone) : wxFrame(nullptr, wxID_ANY, "watched"), m_gone(gone) {}

        ~Watched() override { m_gone = true; }

        bool& m_gone;
    };

    bool gone = false;
    (new Watched(gone))->Destroy();
    EXPECT_FALSE(gone);
    wxTimer alarm;
    bool late = false;
    alarm.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { late = true; });
    alarm.StartOnce(20000);
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        while (!gone && !late)
            loop.Dispatch();
    }
    EXPECT_TRUE(gone);
    shutdown();
}

TEST(NolvexLibWxTest, hostLoopWithoutIdleProcessing_getsItEveryTwoSeconds)
{
    using std::chrono::milliseconds;
    wxApp::SetInstance(new IdleRecordingApp);
    startup(ApplicationType::APPLICATION);
    wxTimer alarm;
    bool isLate = false;
    alarm.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { isLate = true; });
    alarm.StartOnce(20000);
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    // The first time may come from GTK's own idle processing at the start.
    const auto& times = IdleRecordingApp::times;
    while (times.size() < 4 && !isLate)
        loop.Dispatch();
    ASSERT_GE(times.size(), 4u);
    const auto first = times[2] - times[1];
    const auto second = times[3] - times[2];
    // A busy computer may delay one call, which makes the next period shorter.
    EXPECT_GT(first + second, milliseconds(3800));
    EXPECT_LT(std::min(first, second), milliseconds(2200));
    shutdown();
}

TEST(NolvexLibWxTest, startup_withoutADisplay_raisesAMessageAndCanBeTriedAgain)
{
    if (!Nolvex::Tests::displayMayBeMissing())
        GTEST_SKIP() << "every process of this system has a display";
    wxString display;
    wxGetEnv("DISPLAY", &display);
    wxUnsetEnv("DISPLAY");
    wxUnsetEnv("WAYLAND_DISPLAY");
    auto* hostJpeg = new wxJPEGHandler;
    wxImage::AddHandler(hostJpeg);
    wxImage::AddHandler(new HostHandler);
    for (int i = 0; i < 2; ++i) {
        try {
            startup(ApplicationType::APPLICATION);
            ADD_FAILURE() << "started without a display";
        } catch (const Nolvex::Exception& failure) {
            EXPECT_NE(std::string(failure.what()).find("display"), std::string::npos);
        }
        EXPECT_FALSE(isStarted());
        EXPECT_EQ(wxAppConsoleBase::GetInstance(), nullptr);
        EXPECT_EQ(imageHandlerNames(), (std::vector<std::string>{"JPEG file", "the host's"}));
        EXPECT_EQ(wxImage::FindHandler("JPEG file"), hostJpeg);
        EXPECT_TRUE(wxLog::IsEnabled());
    }
    wxSetEnv("DISPLAY", display);
    startup(ApplicationType::APPLICATION);
    EXPECT_TRUE(isStarted());
    EXPECT_EQ(imageHandlerNames().size(), 7u) << "the host's handlers stand for those of their types";
    shutdown();
}

namespace {

// Says no to every dialog, wherever it is shown.
struct Refusal : wxModalDialogHook
{
    Refusal() { Register(); }

    ~Refusal() override { Unregister(); }

    int Enter(wxDialog* /*dialog*/) override
    {
        ++dialogs;
        return wxID_NO;
    }

    std::atomic<int> dialogs = 0;
};

bool ask()
{
    return Nolvex::Wx::showYesNoDialog({}, L"Title", L"Sure?", Nolvex::Wx::MessageDialogIcon::QUESTION);
}

} // namespace

TEST(NolvexLibWxTest, messageDialogOfAThread_isShownInRunEventLoop)
{
    startup(ApplicationType::APPLICATION);
    const Refusal refusal;
    bool answer = true;
    std::thread thread([&] {
        answer = ask();
        wxTheApp->CallAfter([] { Nolvex::LibWx::stopEventLoop(); });
    });
    auto* frame = new wxFrame(nullptr, wxID_ANY, "loop");
    Nolvex::LibWx::runEventLoop();
    thread.join();
    EXPECT_FALSE(answer);
    EXPECT_EQ(refusal.dialogs, 1);
    frame->Destroy();
    shutdown();
}

TEST(NolvexLibWxTest, messageDialogOfAThread_isShownByProcessAllPendingEvents)
{
    startup(ApplicationType::APPLICATION);
    const Refusal refusal;
    std::atomic<bool> answered = false;
    std::thread thread([&] {
        EXPECT_FALSE(ask());
        answered = true;
    });
    const wxStopWatch watch;
    while (!answered && watch.Time() < 20'000)
        Nolvex::LibWx::processAllPendingEvents();
    thread.join();
    EXPECT_EQ(refusal.dialogs, 1);
    shutdown();
}

TEST(NolvexLibWxTest, threadThatAsksWhileTheLoopEnds_isReleased)
{
    startup(ApplicationType::APPLICATION);
    const Refusal refusal;
    std::atomic<bool> mayAsk = false;
    bool answer = true;
    std::thread thread([&] {
        while (!mayAsk)
            std::this_thread::yield();
        answer = ask();
    });
    auto* frame = new wxFrame(nullptr, wxID_ANY, "loop");
    wxTheApp->CallAfter([&] {
        // The question comes while the main thread is busy with its last event.
        mayAsk = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Nolvex::LibWx::stopEventLoop();
    });
    Nolvex::LibWx::runEventLoop();
    thread.join();
    EXPECT_FALSE(answer);
    // Nothing processes events any more, so a thread that asks now must not wait either.
    std::thread([&] { answer = ask(); }).join();
    EXPECT_FALSE(answer);
    frame->Destroy();
    shutdown();
}

TEST(NolvexLibWxTest, threadThatWaitsForADialog_isReleasedByTheLastShutdown)
{
    if (!Nolvex::Tests::needsMainThreadForDialogs())
        GTEST_SKIP() << "threads do not wait for the main thread here";
    startup(ApplicationType::APPLICATION);
    const Refusal refusal;
    std::atomic<bool> asks = false;
    bool answer = true;
    std::thread thread([&] {
        asks = true;
        answer = ask();
    });
    while (!asks)
        std::this_thread::yield();
    shutdown();
    thread.join();
    EXPECT_FALSE(answer);
}

namespace {

void expectNoDialogs()
{
    using Nolvex::Wx::MessageDialogIcon;
    EXPECT_EQ(
        Nolvex::Wx::Detail::showMessageDialogImpl({}, L"Title", L"Message", MessageDialogIcon::INFO, {}),
        16000);
    EXPECT_FALSE(Nolvex::Wx::showOkDialog({}, L"Title", L"Message", MessageDialogIcon::INFO));
    EXPECT_FALSE(Nolvex::Wx::showOkCancelDialog({}, L"Title", L"Message", MessageDialogIcon::INFO));
    EXPECT_FALSE(ask());
    bool answer = true;
    std::thread([&] { answer = ask(); }).join();
    EXPECT_FALSE(answer);
    EXPECT_TRUE(Nolvex::Wx::filenameOpenDlg({}, L"Title", {}, {}).isEmpty());
    EXPECT_TRUE(Nolvex::Wx::dirSelectDlg({}, L"Title", {}).isEmpty());
    using Nolvex::Wx::ImageSaveSettingsDialog;
    EXPECT_FALSE(
        ImageSaveSettingsDialog::requestSettingsFromUser(nullptr, Nolvex::ImageFormat::TIFF, nullptr));
}

// Shows a dialog before the start of the library is complete, and one while the library stops.
struct AskingApp : wxApp
{
    bool OnInit() override
    {
        ask();
        return true;
    }

    int OnExit() override
    {
        ask();
        return wxApp::OnExit();
    }
};

} // namespace

TEST(NolvexLibWxTest, dialogsBeforeTheStart_returnAtOnce)
{
    expectNoDialogs();
}

TEST(NolvexLibWxTest, dialogsAfterTheLastShutdown_returnAtOnce)
{
    startup(ApplicationType::APPLICATION);
    shutdown();
    expectNoDialogs();
}

TEST(NolvexLibWxTest, dialogsOfAHostThatKeepsTheToolkit_returnAtOnceAfterTheLastShutdown)
{
    installHostApp("TheHost");
    ASSERT_TRUE(wxInitialize());
    startup(ApplicationType::HOST_INITIALISED);
    shutdown();
    const Refusal refusal;
    expectNoDialogs();
    EXPECT_EQ(refusal.dialogs, 0);
    wxUninitialize();
}

TEST(NolvexLibWxTest, dialogsWithoutADisplay_returnAtOnce)
{
    if (!Nolvex::Tests::displayMayBeMissing())
        GTEST_SKIP() << "every process of this system has a display";
    wxUnsetEnv("DISPLAY");
    wxUnsetEnv("WAYLAND_DISPLAY");
    EXPECT_THROW(startup(ApplicationType::APPLICATION), Nolvex::Exception);
    expectNoDialogs();
}

TEST(NolvexLibWxTest, dialogsInOnInitAndOnExit_areShown)
{
    wxApp::SetInstance(new AskingApp);
    const Refusal refusal;
    startup(ApplicationType::APPLICATION);
    EXPECT_EQ(refusal.dialogs, 1);
    shutdown();
    EXPECT_EQ(refusal.dialogs, 2);
}

TEST(NolvexLibWxTest, innerEventLoop_leavesTheDialogsOfThreadsToTheOuterLoop)
{
    startup(ApplicationType::APPLICATION);
    const Refusal refusal;
    auto* frame = new wxFrame(nullptr, wxID_ANY, "loop");
    std::thread thread;
    bool answer = true;
    wxTheApp->CallAfter([&] {
        wxTheApp->CallAfter([] { Nolvex::LibWx::stopEventLoop(); });
        Nolvex::LibWx::runEventLoop();
        thread = std::thread([&] {
            answer = ask();
            wxTheApp->CallAfter([] { Nolvex::LibWx::stopEventLoop(); });
        });
    });
    Nolvex::LibWx::runEventLoop();
    thread.join();
    EXPECT_FALSE(answer);
    EXPECT_EQ(refusal.dialogs, 1);
    frame->Destroy();
    shutdown();
}

TEST(NolvexLibWxTest, eventLoopThatIsLeftBeneathADialogOfAThread_endsTheDialog)
{
    if (!Nolvex::Tests::needsMainThreadForDialogs())
        GTEST_SKIP() << "the main loop does not wait for the dialogs of other threads here";
    for (const bool isByApplication : {false, true}) {
        startup(ApplicationType::APPLICATION);
        auto* frame = new wxFrame(nullptr, wxID_ANY, "loop");
        frame->Show();
        int result = 0;
        std::thread thread([&] {
            using Nolvex::Wx::MessageDialogIcon;
            result =
                Nolvex::Wx::Detail::showMessageDialogImpl({}, L"Title", L"?", MessageDialogIcon::INFO, {});
        });
        // The dialog is on the screen long before.
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (isByApplication)
                wxTheApp->ExitMainLoop();
            else
                Nolvex::LibWx::stopEventLoop();
        });
        timer.StartOnce(1500);
        Nolvex::LibWx::runEventLoop();
        thread.join();
        EXPECT_EQ(result, 16000);
        frame->Destroy();
        shutdown();
    }
}

TEST(NolvexLibWxTest, stop_withdrawsOpenQuestionsForTheScreen)
{
    bool isAnswered = false;
    startup(ApplicationType::APPLICATION);
    const Nolvex::Wx::ScreenCaptureRequest request = Nolvex::Wx::requestScreenRegion(
        {{0, 0}, {9, 9}}, std::chrono::seconds(1),
        [&isAnswered](const Nolvex::Wx::ScreenCaptureResult&) { isAnswered = true; });
    EXPECT_TRUE(request.isOpen());
    shutdown();
    EXPECT_FALSE(request.isOpen());
    startup(ApplicationType::APPLICATION);
    Nolvex::LibWx::processAllPendingEvents();
    EXPECT_FALSE(isAnswered);
    shutdown();
}
