// SPDX-License-Identifier: MIT
#include "support/TextFit.h"

#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/anybutton.h>
#include <wx/dcclient.h>
#include <wx/radiobut.h>
#include <wx/scrolwin.h>
#include <wx/textctrl.h>

namespace Nolvex::Tests {

namespace {

wxSize extentOf(const wxWindow& window, const wxString& text)
{
    wxClientDC dc(const_cast<wxWindow*>(&window));
    dc.SetFont(window.GetFont());
    return dc.GetMultiLineTextExtent(text);
}

/// Returns the room that the text of the window needs, which is empty if nothing is known of the class.
wxSize neededBy(const wxWindow& window)
{
    if (dynamic_cast<const Wx::StaticText*>(&window) != nullptr)
        return extentOf(window, window.GetLabel());
    if (const auto* box = dynamic_cast<const Wx::CheckBox*>(&window)) {
        constexpr int BOX_AND_GAP = 18;
        // The height is fixed, and the line of a label may be taller than its letters.
        const wxString label = box->GetLabelText();
        return {label.empty() ? 0 : Wx::scaleByDpi(BOX_AND_GAP) + extentOf(*box, label).x, 0};
    }
    if (const auto* box = dynamic_cast<const Wx::ComboBox*>(&window))
        return {0, extentOf(*box, "Hg").y};
    if (dynamic_cast<const Wx::Button*>(&window) != nullptr)
        return extentOf(window, window.GetLabel());
    if (dynamic_cast<const wxAnyButton*>(&window) != nullptr ||
        dynamic_cast<const wxRadioButton*>(&window) != nullptr)
        return window.GetBestSize();
    return {};
}

bool showsAPart(const wxWindow& parent)
{
    return dynamic_cast<const wxTextCtrl*>(&parent) != nullptr ||
           dynamic_cast<const wxScrollHelper*>(&parent) != nullptr;
}

wxString nameOf(const wxWindow& window)
{
    const wxString label = window.GetLabel();
    return wxString(window.GetClassInfo()->GetClassName()) + " \"" +
           (label.empty() ? window.GetName() : label) + '"';
}

void collect(const wxWindow& window, Array<wxString>& misfits)
{
    const wxSize needed = neededBy(window);
    const wxSize size = window.GetSize();
    if (needed.x > size.x || needed.y > size.y)
        misfits.push_back(wxString::Format("%s needs %d x %d and has %d x %d", nameOf(window), needed.x,
                                           needed.y, size.x, size.y));
    for (const wxWindow* child : window.GetChildren()) {
        if (!child->IsShown() || child->IsTopLevel())
            continue;
        const wxRect place = child->GetRect();
        if (!showsAPart(window) && !wxRect(window.GetClientSize()).Contains(place) && !place.IsEmpty())
            misfits.push_back(wxString::Format("%s reaches from %d, %d to %d, %d in %s of %d x %d",
                                               nameOf(*child), place.x, place.y, place.GetRight() + 1,
                                               place.GetBottom() + 1, nameOf(window),
                                               window.GetClientSize().x, window.GetClientSize().y));
        collect(*child, misfits);
    }
}

} // namespace

Array<wxString> misfitsIn(const wxWindow& root)
{
    Array<wxString> misfits;
    collect(root, misfits);
    return misfits;
}

} // namespace Nolvex::Tests
