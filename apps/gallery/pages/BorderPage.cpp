// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

const wxSize BORDER_SIZE(180, 44);

String nameOf(Flags<OskaBorderState> state)
{
    String name;
    const auto add = [&](OskaBorderState flag, const wchar_t* text) {
        if (state.has(flag))
            name += (name.isEmpty() ? String(text) : L", " + String(text));
    };
    add(OskaBorderState::HOVERED, L"hovered");
    add(OskaBorderState::ENABLED, L"enabled");
    add(OskaBorderState::NO_FRAME, L"no frame");
    return name.isEmpty() ? String(L"no flag") : name;
}

// Shows all eight combinations of the flags. The mouse, too, changes the flag for hovering.
void build(wxWindow* parent, const Log& log)
{
    auto* grid = new wxGridSizer(2, wxSize(16, 16));
    for (std::uint32_t bits = 0; bits < 16; bits += 2) {
        const auto state = Flags<OskaBorderState>::fromBits(bits);
        auto* border = new OskaBorder(parent, state);
        auto* label = new Wx::StaticText(border, wxID_ANY, nameOf(state),
                                         wxALIGN_CENTRE_HORIZONTAL | wxALIGN_CENTRE_VERTICAL);
        label->SetMinSize(Wx::scaleByDpi(BORDER_SIZE));
        border->addChild(label);
        border->Bind(wxEVT_ENTER_WINDOW, [log, state](wxMouseEvent& event) {
            log(L"The mouse entered the border \"" + nameOf(state) + L"\".");
            event.Skip();
        });
        grid->Add(border, 0, wxALIGN_CENTRE);
    }
    parent->SetSizer(grid);
}

const Page PAGE(L"Borders", build, {}, {}, Family::LOOKS);

} // namespace

} // namespace Nolvex::Gallery
