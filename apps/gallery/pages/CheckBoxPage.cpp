// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units

Wx::CheckBox* addCheckBox(wxWindow* parent, wxSizer* rows, const wchar_t* label, bool value, bool enabled,
                          const Log& log)
{
    auto* box = new Wx::CheckBox(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, enabled);
    box->setValue(value, false);
    box->setChangeCallback([log, name = String(label)](bool on) {
        log(L"The check box \"" + name + (on ? L"\" was checked." : L"\" was cleared."));
    });
    if (*label == L'\0')
        Wx::setAccessibleName(*box, L"Without a label");
    rows->Add(box, 0, wxTOP, Wx::scaleByDpi(GAP));
    return box;
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    addCheckBox(parent, rows, L"Cleared", false, true, log);
    addCheckBox(parent, rows, L"Checked", true, true, log);
    addCheckBox(parent, rows, L"Disabled and cleared", false, false, log);
    addCheckBox(parent, rows, L"Disabled and checked", true, false, log);
    addCheckBox(parent, rows, L"", true, true, log);
    addCheckBox(parent, rows, L"With the focus: Tab moves it", false, true, log)->SetFocus();
    parent->SetSizer(rows);
}

const Array<Scene> SCENES{
    {L"checked and focused by a click",
     {Hand::moveTo(Hand::nth<Wx::CheckBox>(0)),
      Hand::click(Hand::when<Wx::CheckBox>(0, [](const Wx::CheckBox& box) { return box.GetValue(); }))}},
    {L"cleared by a click",
     {Hand::moveTo(Hand::nth<Wx::CheckBox>(1)),
      Hand::click(Hand::when<Wx::CheckBox>(1, [](const Wx::CheckBox& box) { return !box.GetValue(); }))}},
    {L"checked by the Space key",
     {Hand::type(WXK_SPACE, 0,
                 Hand::when<Wx::CheckBox>(5, [](const Wx::CheckBox& box) { return box.GetValue(); }))}},
};

const Page PAGE(L"Check boxes", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
