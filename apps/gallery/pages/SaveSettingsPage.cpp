// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <map>
#include <memory>

namespace Nolvex::Gallery {

namespace {

using Wx::ComboBox;
using Wx::ImageSaveSettings;
using Wx::ImageSaveSettingsDialog;

constexpr int GAP = 8;     // design units
constexpr int WIDTH = 180; // design units
const wxSize BUTTON_SIZE(180, 24);

class RememberedSettings : public ImageSaveSettingsDialog::IDefaultsProvider
{
public:
    Optional<ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t /*flags*/) override
    {
        const auto found = m_settings.find(format);
        return found == m_settings.end() ? Optional<ImageSaveSettings>() : found->second;
    }

    void storeSettings(ImageFormat format, const ImageSaveSettings& settings) override
    {
        m_settings[format] = settings;
    }

private:
    std::map<ImageFormat, ImageSaveSettings> m_settings;
};

ComboBox* addFormats(wxWindow* parent, wxSizer* rows)
{
    Array<ComboBox::Item> items;
    for (int format = 0; format < IMAGE_FORMAT_COUNT; ++format)
        items.push_back({getImageFormatDescriptor(static_cast<ImageFormat>(format)).name, format, {}});
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"Image format"));
    auto* formats = new ComboBox(parent, wxID_ANY, WIDTH, {}, {}, true);
    formats->setData(items);
    formats->selectIndex(static_cast<int>(ImageFormat::TIFF), false);
    Wx::setAccessibleName(*formats, L"Image format");
    rows->Add(formats, 0, wxTOP, Wx::scaleByDpi(GAP / 2));
    return formats;
}

String describe(const Optional<ImageSaveSettings>& settings)
{
    if (!settings)
        return L"The dialog was cancelled.";
    return getColorFormatName(settings->colorFormat) +
           (settings->includeAlpha ? L" with alpha" : L" without alpha");
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    ComboBox* formats = addFormats(parent, rows);
    const auto remembered = std::make_shared<RememberedSettings>();
    auto* result = new Wx::StaticText(parent, wxID_ANY, L"No settings have been chosen.");
    const auto ask = [parent, formats, result = wxWeakRef<Wx::StaticText>(result), remembered, log] {
        const auto format = static_cast<ImageFormat>(formats->getSelectedId().value_or(0));
        const String text =
            describe(ImageSaveSettingsDialog::requestSettingsFromUser(parent, format, remembered.get()));
        if (result)
            result->SetLabel(Wx::toWxString(text));
        log(getImageFormatDescriptor(format).name + L": " + text);
    };
    auto* button =
        new Wx::Button(parent, Wx::GuiSkin::DEFAULT(), wxID_ANY, L"Choose the settings...", wxBitmap(),
                       wxBitmap(), ask, Wx::Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
    button->SetMinSize(Wx::scaleByDpi(BUTTON_SIZE));
    rows->Add(button, 0, wxTOP | wxBOTTOM, Wx::scaleByDpi(2 * GAP));
    rows->Add(result);
    parent->SetSizer(rows);
}

const Page PAGE(L"Save settings", build, {}, {}, Family::DIALOGS);

} // namespace

} // namespace Nolvex::Gallery
