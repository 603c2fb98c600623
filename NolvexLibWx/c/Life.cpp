// SPDX-License-Identifier: MIT
#include "NolvexLib/Version.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/c/detail/Guard.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/socket.h>

using namespace Nolvex;

namespace {

int networkCount = 0;

} // namespace

const char* nolvexVersion()
{
    return loadedVersion();
}

NolvexStatus nolvexStartup(NolvexApplicationType type)
{
    return C::guarded([&] {
        if (type < NOLVEX_APPLICATION || type > NOLVEX_HOST_INITIALISED)
            return C::failed("This type of application does not exist.");
        LibWx::startup(static_cast<LibWx::ApplicationType>(type));
        return NOLVEX_OK;
    });
}

void nolvexShutdown()
{
    if (LibWx::isStarted())
        LibWx::shutdown();
}

int nolvexIsStarted()
{
    return LibWx::isStarted() ? 1 : 0;
}

int nolvexRunEventLoop()
{
    int result = -1;
    C::guarded([&] {
        if (!LibWx::isStarted())
            return C::failed("The library has not been started.");
        result = LibWx::runEventLoop();
        return NOLVEX_OK;
    });
    return result;
}

void nolvexStopEventLoop()
{
    C::guarded([] {
        if (LibWx::isStarted())
            LibWx::stopEventLoop();
        return NOLVEX_OK;
    });
}

NolvexStatus nolvexProcessPendingEvents()
{
    return C::guarded([] {
        if (!LibWx::isStarted())
            return C::failed("The library has not been started.");
        LibWx::processAllPendingEvents();
        return NOLVEX_OK;
    });
}

NolvexStatus nolvexStartupNetwork()
{
    return C::guarded([] {
        if (networkCount == 0) {
            // An application object without windows needs no display.
            if (wxAppConsole::GetInstance() == nullptr)
                wxAppConsole::SetInstance(new wxAppConsole);
            if (!wxInitialize())
                return C::failed("wxWidgets could not be initialised.");
            if (!wxSocketBase::Initialize()) {
                wxUninitialize();
                return C::failed("The network could not be initialised.");
            }
        }
        ++networkCount;
        return NOLVEX_OK;
    });
}

void nolvexShutdownNetwork()
{
    if (networkCount == 0 || --networkCount > 0)
        return;
    wxSocketBase::Shutdown();
    wxUninitialize();
}
