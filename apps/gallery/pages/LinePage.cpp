// SPDX-License-Identifier: MIT
#include "NolvexLib/RgbBytes.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <array>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units
constexpr std::array<RgbBytes, 4> RAINBOW{{{200, 60, 50}, {200, 150, 40}, {70, 150, 70}, {60, 110, 180}}};

void addRow(wxWindow* parent, wxSizer* rows, const wchar_t* text, Wx::StaticLine* line)
{
    rows->Add(new Wx::StaticText(parent, wxID_ANY, text), 0, wxTOP, Wx::scaleByDpi(2 * GAP));
    rows->Add(line, 0, wxEXPAND | wxTOP, Wx::scaleByDpi(GAP));
}

void build(wxWindow* parent, const Log& /*log*/)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    addRow(parent, rows, L"Engraved", new Wx::StaticLine(parent, wxHORIZONTAL));
    addRow(parent, rows, L"Four colours", new Wx::StaticLine(parent, wxHORIZONTAL, RAINBOW));
    for (const auto& [text, scale] : {std::pair{L"A quarter", 0.25f}, std::pair{L"Three quarters", 0.75f}})
        addRow(parent, rows, text, new Wx::StaticLine(parent, wxHORIZONTAL, RAINBOW, scale));

    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    for (int i = 0; i < 6; ++i)
        columns->Add(i % 2 == 0
                         ? new Wx::StaticLine(parent, wxVERTICAL)
                         : new Wx::StaticLine(parent, wxVERTICAL, RAINBOW, 0.2f * static_cast<float>(i)),
                     0, wxEXPAND | wxRIGHT, Wx::scaleByDpi(4 * GAP));
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Upright"), 0, wxTOP, Wx::scaleByDpi(2 * GAP));
    rows->Add(columns, 1, wxTOP | wxEXPAND, Wx::scaleByDpi(GAP));
    parent->SetSizer(rows);
}

const Page PAGE(L"Lines", build, {}, {}, Family::LOOKS);

} // namespace

} // namespace Nolvex::Gallery
