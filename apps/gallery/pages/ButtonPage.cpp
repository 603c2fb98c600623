// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/artprov.h>
#include <wx/image.h>
#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units

wxBitmap icon(int length)
{
    wxImage image =
        wxArtProvider::GetBitmap(wxART_FILE_OPEN, wxART_OTHER, wxSize(length, length)).ConvertToImage();
    // Buttons draw bitmaps without their mask, which on Windows would leave the masked pixels black.
    if (!image.HasAlpha())
        image.InitAlpha();
    return {image};
}

struct ButtonState
{
    const wchar_t* label;
    bool hasIcon;
    Wx::Button::Behavior behavior;
    bool enabled;
    bool toggled;
    Flags<OskaBorderState> border;
};

constexpr auto PUSH = Wx::Button::Behavior::PUSH;
constexpr auto TOGGLE = Wx::Button::Behavior::TOGGLE;
constexpr Flags<OskaBorderState> ENABLED = OskaBorderState::ENABLED;
constexpr auto NO_FRAME = OskaBorderState::NO_FRAME;

void addButton(wxWindow* parent, wxSizer* sizer, const ButtonState& state, const Log& log)
{
    const wxBitmap bitmap = state.hasIcon ? Wx::scaleByDpi(icon(16)) : wxBitmap();
    const String name = *state.label != L'\0' ? String(state.label) : String(L"without label");
    auto* button = new Wx::Button(
        parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, state.label, bitmap,
        bitmap.IsOk() ? bitmap.ConvertToDisabled() : bitmap,
        [log, name] { log(L"The button \"" + name + L"\" was clicked."); }, state.behavior, state.enabled,
        state.border);
    // applySkinRecursive() gives every button the plain colours, so that the state is set afterwards.
    button->CallAfter([button, toggled = state.toggled] { button->setToggled(toggled); });
    button->setTooltip(L"The button \"" + name + L"\"");
    if (*state.label == L'\0')
        Wx::setAccessibleName(*button, L"Icon");
    sizer->Add(button, 0, wxEXPAND);
}

void addAutoSized(wxWindow* parent, wxSizer* sizer, const wchar_t* label, int minWidth,
                  Optional<int> iconSize, bool enabled, const Log& log)
{
    auto* button = new Wx::AutoSizedButton(parent, label, minWidth, 0);
    if (iconSize) {
        button->setEnabledIcon(icon(32), iconSize);
        button->setDisabledIcon(icon(32).ConvertToDisabled(), iconSize);
    }
    if (*label == L'\0')
        Wx::setAccessibleName(*button, L"Icon");
    button->setClickCallback([log, name = String(label)] { log(L"\"" + name + L"\" was clicked."); });
    button->Enable(enabled);
    sizer->Add(button, 0, wxRIGHT | wxALIGN_CENTRE_VERTICAL, Wx::scaleByDpi(GAP));
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    auto* grid = new wxGridSizer(3, Wx::scaleByDpi(wxSize(2 * GAP, GAP)));
    for (const ButtonState& state : {
             ButtonState{L"Push", false, PUSH, true, false, ENABLED},
             ButtonState{L"Toggle", false, TOGGLE, true, false, ENABLED},
             ButtonState{L"Toggled", false, TOGGLE, true, true, ENABLED},
             ButtonState{L"With icon", true, PUSH, true, false, ENABLED},
             ButtonState{L"Disabled", false, PUSH, false, false, {}},
             ButtonState{L"Disabled, icon", true, PUSH, false, false, {}},
             ButtonState{L"No frame", false, PUSH, true, false, ENABLED | NO_FRAME},
             ButtonState{L"", true, PUSH, true, false, ENABLED},
             ButtonState{L"Toggled, disabled", false, TOGGLE, false, true, {}},
         })
        addButton(parent, grid, state, log);
    rows->Add(grid, 0, wxEXPAND);

    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Sized by their content"), 0, wxTOP | wxBOTTOM,
              Wx::scaleByDpi(GAP));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    addAutoSized(parent, row, L"OK", 80, {}, true, log);
    addAutoSized(parent, row, L"A label that is wider than the least width", 80, {}, true, log);
    addAutoSized(parent, row, L"Icon of 16", 0, 16, true, log);
    addAutoSized(parent, row, L"", 0, 32, true, log);
    rows->Add(row);
    auto* disabled = new wxBoxSizer(wxHORIZONTAL);
    addAutoSized(parent, disabled, L"Disabled", 80, {}, false, log);
    addAutoSized(parent, disabled, L"Disabled, icon of 16", 0, 16, false, log);
    rows->Add(disabled, 0, wxTOP, Wx::scaleByDpi(GAP));
    parent->SetSizer(rows);
}

Function<bool(wxWindow&)> isHovered(const Hand::Finder& button)
{
    return [button](wxWindow& page) {
        const auto* found = dynamic_cast<Wx::Button*>(button(page));
        return found != nullptr && found->borderState().has(OskaBorderState::HOVERED);
    };
}

Function<bool(wxWindow&)> isPressed(const Hand::Finder& button)
{
    return [button](wxWindow& page) {
        const auto* found = dynamic_cast<Wx::Button*>(button(page));
        return found != nullptr && found->isPressed();
    };
}

Function<bool(wxWindow&)> isToggled(const Hand::Finder& button)
{
    return [button](wxWindow& page) {
        const auto* found = dynamic_cast<Wx::Button*>(button(page));
        return found != nullptr && found->isToggled();
    };
}

const Hand::Finder PUSH_BUTTON = Hand::labelled<Wx::Button>(L"Push");
const Hand::Finder TOGGLE_BUTTON = Hand::labelled<Wx::Button>(L"Toggle");
const Hand::Finder TOGGLED_BUTTON = Hand::labelled<Wx::Button>(L"Toggled");
const Hand::Finder ICON_BUTTON = Hand::labelled<Wx::Button>(L"With icon");
const Hand::Finder FRAMELESS_BUTTON = Hand::labelled<Wx::Button>(L"No frame");
const Hand::Finder OK_BUTTON = Hand::labelled<Wx::Button>(L"OK");

const Array<Scene> SCENES{
    {L"hovered", {Hand::moveTo(PUSH_BUTTON, {}, isHovered(PUSH_BUTTON))}},
    {L"pressed", {Hand::moveTo(PUSH_BUTTON), Hand::press(isPressed(PUSH_BUTTON))}},
    {L"toggle pressed", {Hand::moveTo(TOGGLE_BUTTON), Hand::press(isPressed(TOGGLE_BUTTON))}},
    {L"toggled by a click", {Hand::moveTo(TOGGLE_BUTTON), Hand::click(isToggled(TOGGLE_BUTTON))}},
    {L"toggled pressed again", {Hand::moveTo(TOGGLED_BUTTON), Hand::press(isPressed(TOGGLED_BUTTON))}},
    {L"with an icon pressed", {Hand::moveTo(ICON_BUTTON), Hand::press(isPressed(ICON_BUTTON))}},
    {L"without a frame hovered", {Hand::moveTo(FRAMELESS_BUTTON, {}, isHovered(FRAMELESS_BUTTON))}},
    {L"sized by content hovered", {Hand::moveTo(OK_BUTTON, {}, isHovered(OK_BUTTON))}},
    {L"sized by content pressed", {Hand::moveTo(OK_BUTTON), Hand::press(isPressed(OK_BUTTON))}},
};

const Page PAGE(L"Buttons", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
