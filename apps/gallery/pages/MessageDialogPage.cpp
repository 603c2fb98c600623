// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

#include <array>
#include <iterator>
#include <thread>

namespace Nolvex::Gallery {

namespace {

using Wx::MessageDialogButton;
using Wx::MessageDialogControl;
using Wx::MessageDialogIcon;
using Controls = Stack<const MessageDialogControl*>;

constexpr int GAP = 8; // design units

const MessageDialogButton& overwrite()
{
    static const MessageDialogButton BUTTON(L"Overwrite", 'O');
    return BUTTON;
}

const MessageDialogButton& appendDisabled()
{
    static MessageDialogButton button(L"Append", 'A');
    button.m_enabled = false;
    return button;
}

struct Example
{
    const wchar_t* name;
    MessageDialogIcon icon;
    const wchar_t* message;
    Controls controls;
};

Array<Example> examples()
{
    const Controls ok{&MessageDialogButton::OK, &MessageDialogControl::FRAME_CLOSE};
    const Controls okCancel{&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
    const Controls yesNo{&MessageDialogButton::YES, &MessageDialogButton::NO};
    const Controls own{&overwrite(), &appendDisabled(), &MessageDialogButton::CANCEL};
    return {
        {L"Plain", MessageDialogIcon::NONE, L"The picture has been copied.", ok},
        {L"Error", MessageDialogIcon::ERROR,
         L"The file \"/home/guest/pictures/2026/November/holiday in the mountains/panorama of the whole "
         L"valley.png\" cannot be saved.\n\nThe disk is full.",
         ok},
        {L"Warning", MessageDialogIcon::WARNING, L"The format stores no transparency. Save all the same?",
         okCancel},
        {L"Information", MessageDialogIcon::INFO, L"Width:\t1920\nHeight:\t1080\nSamples:\t256", ok},
        {L"Question", MessageDialogIcon::QUESTION, L"Save the changes of \"glass ball\"?", yesNo},
        {L"Success", MessageDialogIcon::SUCCESS, L"All 24 pictures have been saved.", ok},
        {L"Own buttons", MessageDialogIcon::QUESTION, L"There is a file of this name. What now?", own},
        {L"Other scripts", MessageDialogIcon::INFO,
         L"\u0627\u0644\u0645\u0644\u0641 "
         L"\u0645\u0648\u062C\u0648\u062F\n\u6587\u4EF6\u5DF2\u7ECF\u5B58\u5728\n"
         L"\u0424\u0430\u0439\u043B \u0443\u0436\u0435 "
         L"\u0441\u0443\u0449\u0435\u0441\u0442\u0432\u0443\u0435\u0442",
         ok},
    };
}

WindowHandle ownerOf(wxWindow* parent)
{
    return Wx::getWindowNativeHandle(wxGetTopLevelParent(parent));
}

String nameOf(int controlId, const Controls& controls)
{
    for (const MessageDialogControl* control : controls) {
        const auto* button = dynamic_cast<const MessageDialogButton*>(control);
        if (button != nullptr && button->m_controlId == controlId)
            return L"the button \"" + button->m_label + L"\"";
    }
    return L"closing the frame";
}

void addButton(wxWindow* parent, wxSizer* sizer, const Example& example, const Log& log)
{
    auto* button = new Wx::AutoSizedButton(parent, example.name, 120, 0);
    button->setClickCallback([parent, example, log] {
        const int result = Wx::Detail::showMessageDialogImpl(ownerOf(parent), example.name, example.message,
                                                             example.icon, example.controls);
        log(L"Ended by " + nameOf(result, example.controls) + L".");
    });
    sizer->Add(button, 0, wxEXPAND);
}

void addThreadButton(wxWindow* parent, wxSizer* sizer)
{
    auto* button = new Wx::AutoSizedButton(parent, L"From a thread", 120, 0);
    button->setClickCallback([owner = ownerOf(parent)] {
        std::thread([owner] {
            Wx::showYesNoDialog(owner, L"From a thread", L"Other threads get the dialogs of the system.",
                                MessageDialogIcon::QUESTION);
        }).detach();
    });
    sizer->Add(button, 0, wxEXPAND);
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Each button opens a dialog; the log tells its result"),
              0, wxBOTTOM, Wx::scaleByDpi(GAP));
    auto* grid = new wxGridSizer(3, Wx::scaleByDpi(wxSize(GAP, GAP)));
    for (const Example& example : examples())
        addButton(parent, grid, example, log);
    addThreadButton(parent, grid);
    rows->Add(grid);
    parent->SetSizer(rows);
}

const Page PAGE(
    L"Message dialogs", build,
    [] {
        Array<Window> windows;
        for (const Example& example : examples()) {
            windows.push_back(
                {L"Message dialog " + String(example.name), [example](wxWindow* owner) -> wxTopLevelWindow* {
                     return new Wx::MessageDialog(Wx::getWindowNativeHandle(owner), example.name,
                                                  example.message, example.icon, example.controls);
                 }});
        }
        return windows;
    }(),
    {}, Family::DIALOGS);

} // namespace

} // namespace Nolvex::Gallery
