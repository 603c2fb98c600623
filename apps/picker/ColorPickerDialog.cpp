// SPDX-License-Identifier: MIT
#include "apps/picker/ColorPickerDialog.h"

#include "NolvexLib/FontScale.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/GeometryConversions.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/picker/ChannelSlider.h"
#include "apps/picker/ColorSwatch.h"
#include "apps/picker/HexField.h"
#include "apps/picker/RecentColors.h"

#include <wx/sizer.h>
#include <wx/utils.h>

#include <utility>

namespace Nolvex::Picker {

namespace {

constexpr long STYLE = wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU;

// Design units.
constexpr int MARGIN = 12;
constexpr int GAP = 8;
constexpr int SMALL_GAP = 4;
const wxSize COMPARED_SIZE(72, 28);
const wxSize RECENT_SIZE(24, 24);
const wxSize BUTTON_SIZE(80, 24);

constexpr std::size_t CHANNELS_BEFORE_GAP = 4; // red, green, blue and alpha

// The number that was typed into a spinner counts, although Return closes the dialog before the spinner
// would read it.
void applyTypedNumber()
{
    auto* const field = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus());
    if (field == nullptr)
        return;
    const wxWindow* parent = field->GetParent();
    while (parent != nullptr && dynamic_cast<const Wx::Spinner*>(parent) == nullptr)
        parent = parent->GetParent();
    if (parent == nullptr)
        return;
    wxCommandEvent enter(wxEVT_TEXT_ENTER, field->GetId());
    enter.SetEventObject(field);
    field->ProcessWindowEvent(enter);
}

// Returns the corner of a dialog of this size beside the region, on the right or, if there is no room, on the
// left.
Pixel beside(const Bucket& region, const wxSize& size)
{
    const Bucket area = Wx::getMonitorRegionByPoint(region.min, Wx::MonitorRegionType::WORK_AREA);
    const int gap = Wx::scaleByDpi(GAP);
    if (region.max.x + gap + size.x <= area.max.x)
        return {region.max.x + gap, region.min.y};
    return {region.min.x - gap - size.x, region.min.y};
}

} // namespace

ColorPickerDialog::ColorPickerDialog(wxWindow* owner, const String& title, const wxPoint& position,
                                     const Rgb& initial, Function<void(const Rgb&)> onPreview)
    : wxDialog(owner != nullptr ? wxGetTopLevelParent(owner) : nullptr, wxID_ANY, Wx::toWxString(title),
               wxDefaultPosition, wxDefaultSize, STYLE),
      m_initial(initial),
      m_color(initial),
      m_onPreview(std::move(onPreview)),
      m_owner(owner)
{
    // The controls of wxWidgets inherit the font.
    SetFont(Wx::setDefaultFontSize(GetFont(), getFontScale()));
    auto* rows = new wxBoxSizer(wxVERTICAL);
    addChannels(*rows);
    addComparison(*rows);
    addRecentColors(*rows);
    addButtons(*rows);
    auto* margin = new wxBoxSizer(wxVERTICAL);
    margin->Add(rows, 1, wxEXPAND | wxALL, Wx::scaleByDpi(MARGIN));
    SetSizer(margin);
    Bind(wxEVT_CHAR_HOOK, &ColorPickerDialog::onCharHook, this);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { end(wxID_CANCEL); });
    watchOwner(owner);
    Wx::applySkinRecursive(this, Wx::GuiSkin::DEFAULT());
    place(owner, position);
    m_channels.front()->slider()->SetFocus();
}

ColorPickerDialog::~ColorPickerDialog()
{
    // The handlers of the controls use members of the dialog.
    DestroyChildren();
}

void ColorPickerDialog::addChannels(wxSizer& rows)
{
    const auto onChange = [this](Channel channel, float number) { change(channel, number); };
    wxFlexGridSizer* grid = nullptr;
    for (std::size_t i = 0; i < CHANNELS.size(); ++i) {
        if (i == 0 || i == CHANNELS_BEFORE_GAP) {
            grid = new wxFlexGridSizer(3, Wx::scaleByDpi(wxSize(GAP, SMALL_GAP)));
            grid->AddGrowableCol(1);
            rows.Add(grid, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));
        }
        m_channels.push_back(std::make_unique<ChannelRow>(this, *grid, CHANNELS[i], m_color, onChange));
    }
}

void ColorPickerDialog::addComparison(wxSizer& rows)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const int gap = Wx::scaleByDpi(GAP);
    row->Add(new Wx::StaticText(this, wxID_ANY, L"Hex"), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
    // The border of the library, since those of the systems do not fit a dark skin.
    auto* border = new OskaBorder(this);
    m_hex = new HexField(border, m_initial, [this](const Rgb& color) { take(color); });
    border->addChild(m_hex);
    row->Add(border, 0, wxALIGN_CENTRE_VERTICAL);
    row->AddStretchSpacer();
    auto* old =
        new ColorSwatch(this, L"The colour before", COMPARED_SIZE, m_initial, [this] { take(m_initial); });
    m_new = new ColorSwatch(this, L"The new colour", COMPARED_SIZE, m_initial, {});
    row->Add(new Wx::StaticText(this, wxID_ANY, L"Before"), 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT | wxLEFT,
             gap);
    row->Add(old);
    row->Add(m_new);
    row->Add(new Wx::StaticText(this, wxID_ANY, L"New"), 0, wxALIGN_CENTRE_VERTICAL | wxLEFT, gap);
    rows.Add(row, 0, wxEXPAND | wxBOTTOM, gap);
}

void ColorPickerDialog::addRecentColors(wxSizer& rows)
{
    if (RecentColors::shared().colors().empty())
        return;
    // A panel of their own makes the arrow keys stay among the swatches.
    auto* panel = new wxPanel(this);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (const Rgb& color : RecentColors::shared().colors())
        row->Add(
            new ColorSwatch(panel, L"Last used colour", RECENT_SIZE, color, [this, color] { take(color); }));
    panel->SetSizer(row);
    rows.Add(new Wx::StaticText(this, wxID_ANY, L"Last used"), 0, wxBOTTOM, Wx::scaleByDpi(SMALL_GAP));
    rows.Add(panel, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));
}

void ColorPickerDialog::addButtons(wxSizer& rows)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    rows.Add(row, 0, wxALIGN_RIGHT);
    const auto add = [&](const wchar_t* label, const Function<void()>& onClick) {
        auto* button = new Wx::Button(this, Wx::GuiSkin::DEFAULT(), wxID_ANY, label, wxBitmap(), wxBitmap(),
                                      onClick, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
        button->SetMinSize(Wx::scaleByDpi(BUTTON_SIZE));
        row->Add(button, 0, wxLEFT, Wx::scaleByDpi(GAP));
    };
    add(L"OK", [this] { commit(); });
    add(L"Cancel", [this] { end(wxID_CANCEL); });
}

void ColorPickerDialog::watchOwner(wxWindow* owner)
{
    if (owner == nullptr)
        return;
    GetParent()->Bind(wxEVT_DESTROY, &ColorPickerDialog::onOwnerDestroyed, this);
    if (owner != GetParent())
        owner->Bind(wxEVT_DESTROY, &ColorPickerDialog::onOwnerDestroyed, this);
}

void ColorPickerDialog::place(const wxWindow* owner, const wxPoint& position)
{
    Fit();
    // wxGTK keeps the client size, not the size with the frame, when it learns how wide the frame is.
    SetClientSize(GetClientSize());
    if (position != wxDefaultPosition)
        Wx::smartPositionWindow(this, Wx::toPixel(position));
    else if (owner != nullptr)
        Wx::smartPositionWindow(this, beside(Wx::toBucket(owner->GetScreenRect()), GetSize()));
    else
        Centre();
}

Optional<Rgb> ColorPickerDialog::run()
{
    if (ShowModal() != wxID_OK)
        return {};
    return m_color.color();
}

bool ColorPickerDialog::Destroy()
{
    end(wxID_CANCEL);
    return true;
}

void ColorPickerDialog::change(Channel channel, float number)
{
    m_color.setChannel(channel, number);
    showColor();
}

void ColorPickerDialog::take(const Rgb& color)
{
    m_color.setColor(color);
    showColor();
}

void ColorPickerDialog::showColor()
{
    for (const std::unique_ptr<ChannelRow>& row : m_channels)
        row->update();
    m_hex->setColor(m_color.color());
    m_new->setColor(m_color.color());
    if (m_onPreview)
        m_onPreview(m_color.color());
}

void ColorPickerDialog::commit()
{
    applyTypedNumber();
    if (m_hex->isBad()) {
        m_hex->SetFocus();
        m_hex->SelectAll();
        return;
    }
    end(wxID_OK);
}

// A preview may destroy the owner, which cancels the dialog, while OK is being handled. On Windows the dialog
// stays modal until its event loop returns, and a second result would replace the first.
void ColorPickerDialog::end(int result)
{
    if (!IsModal() || m_ended)
        return;
    m_ended = true;
    EndModal(result);
}

void ColorPickerDialog::onCharHook(wxKeyEvent& event)
{
    switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        commit();
        break;
    case WXK_ESCAPE:
        end(wxID_CANCEL);
        break;
    default:
        event.Skip();
    }
}

void ColorPickerDialog::onOwnerDestroyed(wxWindowDestroyEvent& event)
{
    event.Skip();
    wxWindow* const parent = GetParent();
    if (event.GetEventObject() == parent) {
        // The parent would delete the dialog while its event loop runs, and Windows destroys the windows of
        // an owner together with the owner.
        Wx::setOwnerFromNativeHandle(Wx::getWindowNativeHandle(this), {});
        parent->RemoveChild(this);
        end(wxID_CANCEL);
    } else if (event.GetEventObject() == m_owner) {
        end(wxID_CANCEL);
    }
}

} // namespace Nolvex::Picker
