// SPDX-License-Identifier: MIT
// A window with a colour picker button, for programs that drag colours. The program writes a line each time
// it shows the button at another place of the screen, and for each call of a callback of the button:
//
//     area X Y WIDTH HEIGHT
//     change HEX
//     preview HEX
//
// HEX are the bits of the four channels r, g, b and a, as numbers of eight digits. The first argument is the
// colour of the button in the same form, without spaces.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"

#include <wx/frame.h>
#include <wx/timer.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace Nolvex;

using Bits = std::array<std::uint32_t, 4>;

Rgb colorFrom(const std::string& digits)
{
    Bits bits{};
    for (std::size_t i = 0; i < bits.size() && digits.size() >= 8 * (i + 1); ++i)
        bits[i] = static_cast<std::uint32_t>(std::strtoul(digits.substr(8 * i, 8).c_str(), nullptr, 16));
    return std::bit_cast<Rgb>(bits);
}

void report(const char* callback, const Rgb& color)
{
    const Bits bits = std::bit_cast<Bits>(color);
    std::printf("%s %08X%08X%08X%08X\n", callback, bits[0], bits[1], bits[2], bits[3]);
    std::fflush(stdout);
}

// The window manager may move the window after it has been shown.
class PlaceReport : public wxTimer
{
public:
    explicit PlaceReport(wxWindow* window) : m_window(window) { Start(100); }

    void Notify() override
    {
        const wxRect place = m_window->GetScreenRect();
        if (!m_window->IsShownOnScreen() || place == m_place)
            return;
        m_place = place;
        std::printf("area %d %d %d %d\n", place.x, place.y, place.width, place.height);
        std::fflush(stdout);
    }

private:
    wxWindow* m_window;
    wxRect m_place;
};

int run(const Rgb& color)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, L"Swatch", wxPoint(100, 100), wxSize(300, 200));
    auto* panel = new wxPanel(frame);
    auto* button = new Wx::ColorPickerButton(nullptr, panel, L"Colour", wxSize(80, 60), true);
    button->SetPosition(wxPoint(50, 40));
    button->setColor(color, false);
    button->onChange = [](const Rgb& changed) { report("change", changed); };
    button->onPreview = [](const Rgb& previewed) { report("preview", previewed); };
    frame->Show();
    const PlaceReport places(button);
    return LibWx::runEventLoop();
}

} // namespace

int main(int argc, char** argv)
{
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    const int result = run(colorFrom(argc > 1 ? argv[1] : ""));
    LibWx::shutdown();
    return result;
}
