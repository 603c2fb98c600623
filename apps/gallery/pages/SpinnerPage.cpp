// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units
constexpr int WIDTH = 60;

struct SpinnerCase
{
    const wchar_t* label;
    float minValue;
    float maxValue;
    float value;
    int precision;
    float step;
};

// Shows its arrows in one state until the mouse comes.
class PosedSpinner : public Wx::Spinner
{
public:
    PosedSpinner(wxWindow* parent, ArrowLook up, ArrowLook down)
        : Wx::Spinner(parent, wxID_ANY, WIDTH, 0, 10, 5, 1, 0.1f)
    {
        upArrow()->setBitmap(arrowPicture(true, up));
        downArrow()->setBitmap(arrowPicture(false, down));
    }
};

void addRow(wxWindow* parent, wxSizer* grid, const wchar_t* label, Wx::Spinner* spinner, const Log& log)
{
    spinner->SetLabel(label);
    spinner->callOnValueChange([log, name = String(label)](float value) {
        log(L"\"" + name + L"\" is " + Wx::toString(wxString::Format("%g", static_cast<double>(value))) +
            L".");
    });
    spinner->Bind(Wx::CUSTSPINNER_START_EDITING, [log, name = String(label)](wxActivateEvent&) {
        log(L"Editing \"" + name + L"\" begins.");
    });
    spinner->Bind(Wx::CUSTSPINNER_END_EDITING,
                  [log, name = String(label)](wxActivateEvent&) { log(L"Editing \"" + name + L"\" ends."); });
    grid->Add(new Wx::StaticText(parent, wxID_ANY, label), 0, wxALIGN_CENTRE_VERTICAL);
    grid->Add(spinner, 0, wxALIGN_CENTRE_VERTICAL);
}

void addLive(wxWindow* parent, wxSizer* grid, const Log& log)
{
    for (const SpinnerCase& c : {
             SpinnerCase{L"Whole numbers, 0 to 100", 0, 100, 50, 0, 1},
             SpinnerCase{L"Two places, in steps of 0.25", -10, 10, 1.5f, 2, 0.25f},
             SpinnerCase{L"Automatic steps", 0, 10000, 500, 3, 0},
         })
        addRow(parent, grid, c.label,
               new Wx::Spinner(parent, wxID_ANY, WIDTH, c.minValue, c.maxValue, c.value, c.precision, c.step),
               log);

    auto* fast = new Wx::Spinner(parent, wxID_ANY, WIDTH, 0, 100, 20, 0, 1);
    fast->setClickSpeedOverride([]() -> Optional<float> { return 10.0f; });
    fast->setTooltip(L"A click changes the number by 10, dragging by 1 for each pixel");
    addRow(parent, grid, L"Clicks of 10, with a tooltip", fast, log);

    auto* several = new Wx::Spinner(parent, wxID_ANY, WIDTH, 0, 1, 0.5f, 2, 0.01f);
    several->setText(L"several");
    addRow(parent, grid, L"A text instead of the number", several, log);

    auto* disabled = new Wx::Spinner(parent, wxID_ANY, WIDTH, 0, 10, 3, 1, 1);
    disabled->Disable();
    addRow(parent, grid, L"Disabled", disabled, log);
}

void addStates(wxWindow* parent, wxSizer* grid, const Log& log)
{
    using enum Wx::Spinner::ArrowLook;
    addRow(parent, grid, L"The mouse is over the upper arrow", new PosedSpinner(parent, HOVERED, NORMAL),
           log);
    addRow(parent, grid, L"The upper arrow is pressed", new PosedSpinner(parent, PRESSED, NORMAL), log);
    addRow(parent, grid, L"The lower arrow is pressed", new PosedSpinner(parent, NORMAL, PRESSED), log);
    addRow(parent, grid, L"The number is dragged", new PosedSpinner(parent, PRESSED, PRESSED), log);
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    auto* live = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(2 * GAP, GAP)));
    addLive(parent, live, log);
    rows->Add(live);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"The states of the arrows, until the mouse comes"), 0,
              wxTOP | wxBOTTOM, Wx::scaleByDpi(2 * GAP));
    auto* states = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(2 * GAP, GAP)));
    addStates(parent, states, log);
    rows->Add(states);
    parent->SetSizer(rows);
}

const Hand::Finder SPINNER = Hand::nth<Wx::Spinner>(0);
const Hand::Finder UP_ARROW = Hand::partOf<Wx::StaticBitmap>(SPINNER, 0);
const Hand::Finder DOWN_ARROW = Hand::partOf<Wx::StaticBitmap>(SPINNER, 1);
const Hand::Finder FIELD = Hand::partOf<Wx::TextControl>(SPINNER, 0);
const auto FIELD_HAS_FOCUS =
    Hand::when<Wx::TextControl>(0, [](const Wx::TextControl& field) { return field.HasFocus(); });

using Look = Wx::Spinner::ArrowLook;

// Returns the condition that both arrows of the first spinner look like this.
Function<bool(wxWindow&)> arrowsLook(Look up, Look down)
{
    const auto looks = [](wxWindow& page, const Hand::Finder& arrow, const wxBitmap& picture) {
        const auto* const found = dynamic_cast<Wx::StaticBitmap*>(arrow(page));
        return found != nullptr && found->bitmap().IsSameAs(picture);
    };
    return [looks, up, down](wxWindow& page) {
        return looks(page, UP_ARROW, Wx::Spinner::arrowPicture(true, up)) &&
               looks(page, DOWN_ARROW, Wx::Spinner::arrowPicture(false, down));
    };
}

Function<bool(wxWindow&)> fieldHolds(const wchar_t* text)
{
    return Hand::when<Wx::TextControl>(
        0, [text](const Wx::TextControl& field) { return field.GetValue().Contains(text); });
}

const Array<Scene> SCENES{
    {L"arrow hovered", {Hand::moveTo(UP_ARROW, {}, arrowsLook(Look::HOVERED, Look::NORMAL))}},
    {L"arrow pressed", {Hand::moveTo(UP_ARROW), Hand::press(arrowsLook(Look::PRESSED, Look::NORMAL))}},
    {L"lower arrow pressed",
     {Hand::moveTo(DOWN_ARROW), Hand::press(arrowsLook(Look::NORMAL, Look::PRESSED))}},
    {L"dragged",
     {Hand::moveTo(UP_ARROW), Hand::press(arrowsLook(Look::PRESSED, Look::NORMAL)),
      Hand::moveTo(UP_ARROW, {0, -8}),
      Hand::moveTo(UP_ARROW, {0, -16}, arrowsLook(Look::PRESSED, Look::PRESSED))}},
    {L"focused", {Hand::moveTo(FIELD), Hand::click(FIELD_HAS_FOCUS)}},
    {L"edited",
     {Hand::moveTo(FIELD), Hand::click(FIELD_HAS_FOCUS), Hand::type(WXK_END),
      Hand::type(WXK_HOME, wxMOD_SHIFT), Hand::type('7', 0, fieldHolds(L"7")),
      Hand::type('5', 0, fieldHolds(L"75"))}},
};

const Page PAGE(L"Spinners", build, {}, SCENES);

} // namespace

} // namespace Nolvex::Gallery
