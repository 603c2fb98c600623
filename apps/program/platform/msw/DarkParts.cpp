// SPDX-License-Identifier: MIT
#include "apps/program/platform/DarkParts.h"

#include <wx/event.h>
#include <wx/toplevel.h>

#include <wx/msw/wrapwin.h>

#include <dwmapi.h>

namespace Nolvex {

namespace {

// The headers of MinGW-w64 and of older Windows kits lack these values.
constexpr DWORD USE_IMMERSIVE_DARK_MODE = 20;
constexpr DWORD USE_IMMERSIVE_DARK_MODE_BEFORE_20H1 = 19;

bool g_dark = false;

// Windows before Windows 10 knows neither attribute and ignores both.
void colourTitleBar(const wxWindow& window)
{
    const BOOL dark = g_dark ? TRUE : FALSE;
    const auto set = [&](DWORD attribute) {
        return ::DwmSetWindowAttribute(window.GetHWND(), attribute, &dark, sizeof(dark));
    };
    if (FAILED(set(USE_IMMERSIVE_DARK_MODE)))
        set(USE_IMMERSIVE_DARK_MODE_BEFORE_20H1);
}

/// Colours the title bar of each window that is shown, before Windows paints it.
class ShownWindows : public wxEventFilter
{
public:
    ShownWindows() { wxEvtHandler::AddFilter(this); }

    ~ShownWindows() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& event) override
    {
        if (event.GetEventType() == wxEVT_SHOW) {
            if (const auto* window = wxDynamicCast(event.GetEventObject(), wxTopLevelWindow))
                colourTitleBar(*window);
        }
        return Event_Skip;
    }
};

} // namespace

bool Program::hasHighContrast()
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, contrast.cbSize, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void Program::requestDarkParts(bool dark)
{
    static const ShownWindows WATCH;
    g_dark = dark;
    for (const wxWindow* window : wxTopLevelWindows)
        colourTitleBar(*window);
}

} // namespace Nolvex
