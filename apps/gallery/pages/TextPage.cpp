// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 10; // design units

const wchar_t* const SENTENCE =
    L"A label keeps its text as it was given, so that it can be wrapped to one width after "
    L"the other and always comes out as if it had been wrapped once.";

void build(wxWindow* parent, const Log& /*log*/)
{
    using Wx::StaticText;
    using Wx::TextFlag;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    const auto add = [&](wxWindow* window) { rows->Add(window, 0, wxBOTTOM, Wx::scaleByDpi(GAP)); };
    add(new StaticText(parent, wxID_ANY, L"Plain text & ampersands"));
    add(new StaticText(parent, wxID_ANY, L"Bold text", 0, TextFlag::BOLD));
    add(new StaticText(parent, wxID_ANY, L"Italic text", 0, TextFlag::ITALIC));
    add(new StaticText(parent, wxID_ANY, L"Both", 0, {TextFlag::BOLD, TextFlag::ITALIC}));
    for (const int width : {460, 220}) {
        auto* wrapped = new StaticText(parent, wxID_ANY, SENTENCE);
        wrapped->Wrap(Wx::scaleByDpi(width));
        add(wrapped);
    }
    parent->SetSizer(rows);
}

const Page PAGE(L"Texts", build, {}, {}, Family::TEXTS);

} // namespace

} // namespace Nolvex::Gallery
