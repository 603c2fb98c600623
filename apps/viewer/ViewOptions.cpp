// SPDX-License-Identifier: MIT
#include "apps/viewer/ViewOptions.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/picker/WatchedPickerFactory.h"
#include "apps/viewer/view/DisplayOptions.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <memory>

namespace Nolvex::Viewer {

namespace {

constexpr int GAP = 16;
constexpr int SMALL_GAP = 6;

const wxSize SWATCH_SIZE(36, 16);

RgbBytes usualSurround()
{
    return Wx::GuiSkin::DEFAULT().darkBackground;
}

void addCheckBox(wxWindow* parent, wxSizer* row, const String& label, Command command,
                 const Function<void(Command)>& run)
{
    auto* box = new Wx::CheckBox(parent, command, label);
    box->setChangeCallback([run, command](bool) { run(command); });
    row->Add(box, 0, wxRIGHT, Wx::scaleByDpi(GAP));
}

} // namespace

ViewOptions::ViewOptions(wxWindow* parent, const Function<void(Command)>& run,
                         const Function<void(const DisplaySettings&)>& display,
                         const Function<void(const RgbBytes&)>& trySurround,
                         const Function<void(bool)>& endTrying)
    : wxPanel(parent)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    addCheckBox(this, row, L"Log", Command::SHOW_LOG, run);
    addCheckBox(this, row, L"Tooltips", Command::SHOW_TOOLTIPS, run);
    addCheckBox(this, row, L"Light surround", Command::LIGHT_SURROUND, run);
    addCheckBox(this, row, L"Pixel probe", Command::PIXEL_PROBE, run);
    addSurround(*row, trySurround, endTrying);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(row);
    m_display = new DisplayOptions(this, display);
    rows->Add(m_display, 0, wxTOP, Wx::scaleByDpi(SMALL_GAP));
    SetSizerAndFit(rows);
}

void ViewOptions::addSurround(wxSizer& row, const Function<void(const RgbBytes&)>& trySurround,
                              const Function<void(bool)>& endTrying)
{
    const auto onEnded = [self = wxWeakRef<ViewOptions>(this), endTrying] {
        if (!self)
            return;
        // After a cancelled picker the button would go on showing the colour that was tried last.
        self->m_surround->setColor(self->m_surround->getColor(), false);
        endTrying(false);
    };
    m_surround = new Wx::ColorPickerButton(std::make_unique<Picker::WatchedPickerFactory>(onEnded), this,
                                           L"Surround", SWATCH_SIZE, true);
    m_surround->SetMinSize(Wx::scaleByDpi(SWATCH_SIZE));
    m_surround->setColor(Wx::toRgb(Wx::toWxColour(usualSurround())), false);
    m_surround->onPreview = [trySurround](const Rgb& tried) {
        trySurround(Wx::toRgbBytes(Wx::toWxColour(tried)));
    };
    m_surround->onChange = [endTrying](const Rgb&) { endTrying(true); };
    row.Add(m_surround, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, Wx::scaleByDpi(SMALL_GAP));
    row.Add(new Wx::StaticText(this, wxID_ANY, L"Surround"), 0, wxALIGN_CENTRE_VERTICAL);
}

void ViewOptions::setPreferences(const Preferences& preferences)
{
    m_surround->setColor(Wx::toRgb(Wx::toWxColour(preferences.surround.value_or(usualSurround()))), false);
    m_display->setTaste(preferences.encoding, preferences.checkerboard);
}

void ViewOptions::storePreferences(Preferences& preferences) const
{
    preferences.surround = surround();
    if (surround() == usualSurround())
        preferences.surround.reset();
    preferences.encoding = m_display->settings().encoding;
    preferences.checkerboard = m_display->settings().checkerboard;
}

RgbBytes ViewOptions::surround() const
{
    return Wx::toRgbBytes(Wx::toWxColour(m_surround->getColor()));
}

void ViewOptions::setChannels(const Array<String>& names)
{
    m_display->setChannels(names);
}

void ViewOptions::check(Command command, bool checked)
{
    if (auto* box = dynamic_cast<Wx::CheckBox*>(FindWindow(command)))
        box->setValue(checked, false);
}

} // namespace Nolvex::Viewer
