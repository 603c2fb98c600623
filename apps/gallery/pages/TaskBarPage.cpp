// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/TaskbarProgress.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <memory>

namespace Nolvex::Gallery {

namespace {

using Wx::TaskbarProgress;

constexpr int GAP = 8;    // design units
constexpr int WIDTH = 60; // design units
const wxSize BUTTON_SIZE(180, 24);

void addButton(wxWindow* parent, wxSizer* rows, const wchar_t* label, const Function<void()>& onClick)
{
    auto* button = new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, label, wxBitmap(), wxBitmap(),
                                  onClick, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
    button->SetMinSize(Wx::scaleByDpi(BUTTON_SIZE));
    rows->Add(button, 0, wxTOP, Wx::scaleByDpi(GAP));
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    const auto progress =
        std::make_shared<TaskbarProgress>(Wx::getWindowNativeHandle(wxGetTopLevelParent(parent)));

    auto* row = new wxBoxSizer(wxHORIZONTAL);
    auto* percent = new Wx::Spinner(parent, wxID_ANY, WIDTH, 0, 100, 0, 1, 1);
    percent->SetLabel(L"Per cent");
    percent->callOnValueChange([progress, log](float value) {
        progress->setProgress(value / 100);
        log(L"The task bar shows " + Wx::toString(wxString::Format("%g", static_cast<double>(value))) +
            L" %.");
    });
    row->Add(new Wx::StaticText(parent, wxID_ANY, L"Per cent"), 0, wxALIGN_CENTRE_VERTICAL);
    row->Add(percent, 0, wxALIGN_CENTRE_VERTICAL | wxLEFT, Wx::scaleByDpi(GAP));

    rows->Add(new Wx::StaticText(parent, wxID_ANY,
                                 L"The button of this window shows the progress until the page changes"),
              0, wxBOTTOM, Wx::scaleByDpi(2 * GAP));
    rows->Add(row, 0, wxBOTTOM, Wx::scaleByDpi(GAP));
    addButton(parent, rows, L"Unknown length", [progress, log] {
        progress->setIndeterminate();
        log(L"The task bar shows an operation of unknown length.");
    });
    addButton(parent, rows, L"No progress", [progress, log] {
        progress->setIdle();
        log(L"The task bar shows no progress.");
    });
    parent->SetSizer(rows);
}

const Page PAGE(L"Task bar progress", build, {}, {}, Family::DIALOGS);

} // namespace

} // namespace Nolvex::Gallery
