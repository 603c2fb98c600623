// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"

#include "NolvexLib/FontScale.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FontSetup.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/detail/ModalDialogs.h"
#include "NolvexLibWx/detail/ModalEnd.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/GuiSkin.h"

#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include <algorithm>
#include <bit>
#include <memory>

namespace Nolvex {

namespace {

constexpr long STYLE = wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU;
constexpr int ALPHA_ID = 40;
// The file and line that the fatal error of an unknown colour format is known by.
constexpr const char* SOURCE = "widgets/ImageSaveSettingsDialog";
constexpr int UNKNOWN_FORMAT_LINE = 63;

// Design units.
constexpr int MARGIN = 12;
constexpr int GAP = 8;
constexpr int BUTTON_WIDTH = 80;
constexpr int BUTTON_HEIGHT = 24;

wxString labelOf(ColorFormat format)
{
    switch (format) {
    case ColorFormat::UINT8_RGB:
        return L"8-bit sRGB";
    case ColorFormat::UINT16_RGB:
        return L"16-bit sRGB";
    case ColorFormat::FLT16_LINEAR_RGB:
        return L"16-bit floating-point linear RGB";
    case ColorFormat::FLT32_LINEAR_RGB:
        return L"32-bit floating-point linear RGB";
    case ColorFormat::DEFAULT:
        break;
    }
    Detail::throwStopException(SOURCE, UNKNOWN_FORMAT_LINE);
}

Array<ColorFormat> formatsIn(Flags<ColorFormat> set)
{
    Array<ColorFormat> formats;
    for (std::uint32_t bits = set.bits(); bits != 0; bits &= bits - 1)
        formats.push_back(static_cast<ColorFormat>(bits & (~bits + 1)));
    return formats;
}

// Tab goes to and fro between the color formats and the check box, with Shift and Ctrl, too.
bool isTab(const wxKeyEvent& event)
{
    return event.GetKeyCode() == WXK_TAB && !event.AltDown();
}

Wx::ImageSaveSettings initialSettings(const ImageFormatDescriptor& format,
                                      Wx::ImageSaveSettingsDialog::IDefaultsProvider* defaults)
{
    constexpr int FIRST_PROPERTY_BIT = 8;
    const Wx::ImageSaveSettings ofFormat{format.defaultColorFormat,
                                         format.flags.has(ImageFormatFlag::SUPPORTS_ALPHA)};
    if (defaults == nullptr)
        return ofFormat;
    return defaults->getDefaults(format.format, format.flags.bits() >> FIRST_PROPERTY_BIT).value_or(ofFormat);
}

} // namespace

struct Wx::ImageSaveSettingsDialog::Destroyer
{
    void operator()(ImageSaveSettingsDialog* dialog) const
    {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): the override only ends the dialog
        dialog->wxDialog::Destroy();
    }
};

Wx::ImageSaveSettingsDialog::Choices
Wx::ImageSaveSettingsDialog::choicesOf(const ImageFormatDescriptor& format)
{
    if (!format.flags.has(ImageFormatFlag::HAS_SAVE_OPTIONS))
        return {{}, false};
    const bool several = std::popcount(format.allowedColorFormats.bits()) > 1;
    return {several ? format.allowedColorFormats : Flags<ColorFormat>(),
            format.flags.has(ImageFormatFlag::SUPPORTS_ALPHA)};
}

Optional<Wx::ImageSaveSettings>
Wx::ImageSaveSettingsDialog::requestSettingsFromUser(wxWindow* parent, ImageFormat format,
                                                     IDefaultsProvider* defaults)
{
    return requestSettingsFromUser(parent, getImageFormatDescriptor(format), defaults);
}

Optional<Wx::ImageSaveSettings>
Wx::ImageSaveSettingsDialog::requestSettingsFromUser(wxWindow* parent, const ImageFormatDescriptor& format,
                                                     IDefaultsProvider* defaults)
{
    const Choices choices = choicesOf(format);
    if (choices.colorFormats.isEmpty() && !choices.alpha)
        return ImageSaveSettings{ColorFormat::DEFAULT, true};
    if (!ModalDialogs::arePossible())
        return std::nullopt;
    const ImageSaveSettings initial = initialSettings(format, defaults);

    Optional<ImageSaveSettings> chosen;
    {
        const std::unique_ptr<ImageSaveSettingsDialog, Destroyer> dialog(
            new ImageSaveSettingsDialog(parent, choices, initial));
        if (dialog->ShowModal() == wxID_OK)
            chosen = dialog->settings(initial);
    }
    if (chosen && defaults != nullptr)
        defaults->storeSettings(format.format, *chosen);
    return chosen;
}

Wx::ImageSaveSettingsDialog::ImageSaveSettingsDialog(wxWindow* parent, const Choices& choices,
                                                     const ImageSaveSettings& initial)
    : wxDialog(parent, wxID_ANY, L"Save Options", wxDefaultPosition, wxDefaultSize, STYLE),
      m_ending(std::make_unique<ModalEnd>(*this))
{
    // The controls of wxWidgets inherit the font.
    SetFont(setDefaultFontSize(GetFont(), getFontScale()));
    auto* margin = new wxBoxSizer(wxVERTICAL);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    margin->Add(rows, 1, wxEXPAND | wxALL, scaleByDpi(MARGIN));
    SetSizer(margin);
    if (!choices.colorFormats.isEmpty())
        addColorFormats(*rows, choices.colorFormats, initial.colorFormat);
    if (choices.alpha)
        addAlphaCheckBox(*rows, initial.includeAlpha);
    addButtons(*rows);

    // The buttons send a wxMouseEvent, while the close box sends a wxCommandEvent.
    Bind(wxEVT_BUTTON, &ImageSaveSettingsDialog::onButton, this);
    Bind(wxEVT_CHAR_HOOK, &ImageSaveSettingsDialog::onCharHook, this);
    if (GetParent() != nullptr)
        GetParent()->Bind(wxEVT_DESTROY, &ImageSaveSettingsDialog::onParentDestroyed, this);
    applySkinRecursive(this, GuiSkin::DEFAULT());
    margin->Fit(this);
    CenterOnParent(wxBOTH);
    // CenterOnParent makes wxGTK keep the size of the whole window and shrink its inside as soon as the
    // window manager tells the size of the frame. Fit makes wxGTK keep the size of the inside.
    margin->Fit(this);
    setFirstFocus();
}

Wx::ImageSaveSettingsDialog::~ImageSaveSettingsDialog() = default;

void Wx::ImageSaveSettingsDialog::addColorFormats(wxSizer& rows, Flags<ColorFormat> allowed,
                                                  ColorFormat initial)
{
    auto* sizer = new wxStaticBoxSizer(wxVERTICAL, this, L"Color format");
    rows.Add(sizer, 0, wxEXPAND | wxBOTTOM, scaleByDpi(GAP));
    for (const ColorFormat format : formatsIn(allowed)) {
        // wxWidgets selects the first button of a group.
        const long style = m_colorFormats.empty() ? wxRB_GROUP : 0;
        auto* button = new wxRadioButton(sizer->GetStaticBox(), wxID_ANY, labelOf(format), wxDefaultPosition,
                                         wxDefaultSize, style);
        button->Bind(wxEVT_CHAR_HOOK, &ImageSaveSettingsDialog::onColorFormatKey, this);
        if (format == initial)
            button->SetValue(true);
        m_colorFormats.emplace_back(format, button);
        sizer->Add(button, 0, wxALL, scaleByDpi(GAP / 2));
    }
}

void Wx::ImageSaveSettingsDialog::addAlphaCheckBox(wxSizer& rows, bool includeAlpha)
{
    m_alpha = new CheckBox(this, ALPHA_ID, L"Include alpha channel");
    m_alpha->setValue(includeAlpha, false);
    m_alpha->Bind(wxEVT_CHAR_HOOK, &ImageSaveSettingsDialog::onAlphaKey, this);
    rows.Add(m_alpha, 0, wxTOP | wxBOTTOM, scaleByDpi(GAP / 2));
}

void Wx::ImageSaveSettingsDialog::addButtons(wxSizer& rows)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    rows.Add(row, 0, wxALIGN_RIGHT | wxTOP, scaleByDpi(GAP));
    const float fontScale = getFontScale();
    const auto add = [&](int id, const wchar_t* label, int gap) {
        auto* button = new Button(this, GuiSkin::DEFAULT(), id, label, wxBitmap(), wxBitmap(), {},
                                  Button::Behavior::PUSH, true, OskaBorderState::ENABLED);
        button->SetFont(setDefaultFontSize(button->GetFont(), fontScale));
        button->SetMinSize(scaleByDpi(wxSize(BUTTON_WIDTH, BUTTON_HEIGHT)) * fontScale);
        row->Add(button, 0, wxLEFT, scaleByDpi(gap));
    };
    add(wxID_OK, L"OK", 0);
    add(wxID_CANCEL, L"Cancel", GAP);
}

wxRadioButton* Wx::ImageSaveSettingsDialog::selectedColorFormat() const
{
    for (const auto& [format, button] : m_colorFormats) {
        if (button->GetValue())
            return button;
    }
    return nullptr;
}

Wx::ImageSaveSettings Wx::ImageSaveSettingsDialog::settings(ImageSaveSettings initial) const
{
    const wxRadioButton* const selected = selectedColorFormat();
    for (const auto& [format, button] : m_colorFormats) {
        if (button == selected)
            initial.colorFormat = format;
    }
    if (m_alpha != nullptr)
        initial.includeAlpha = m_alpha->GetValue();
    return initial;
}

// The focus starts at the selected button, as Tab would reach it.
void Wx::ImageSaveSettingsDialog::setFirstFocus()
{
    if (wxRadioButton* const selected = selectedColorFormat())
        selected->SetFocus();
    else if (m_alpha != nullptr)
        m_alpha->SetFocus();
}

void Wx::ImageSaveSettingsDialog::end(int result)
{
    if (IsModal())
        m_ending->end(result);
}

void Wx::ImageSaveSettingsDialog::onButton(wxEvent& event)
{
    if (event.GetId() == wxID_OK || event.GetId() == wxID_CANCEL)
        end(event.GetId());
    else
        event.Skip();
}

void Wx::ImageSaveSettingsDialog::onCharHook(wxKeyEvent& event)
{
    switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        end(wxID_OK);
        break;
    case WXK_ESCAPE:
        end(wxID_CANCEL);
        break;
    default:
        event.Skip();
    }
}

// The arrow keys go round in the group. wxMSW would leave the group, whose box it takes for a single control.
void Wx::ImageSaveSettingsDialog::onColorFormatKey(wxKeyEvent& event)
{
    switch (event.HasAnyModifiers() ? WXK_NONE : event.GetKeyCode()) {
    case WXK_DOWN:
    case WXK_RIGHT:
        selectNeighbour(1);
        return;
    case WXK_UP:
    case WXK_LEFT:
        selectNeighbour(m_colorFormats.size() - 1);
        return;
    default:
        break;
    }
    if (!isTab(event))
        event.Skip();
    else if (m_alpha != nullptr)
        m_alpha->SetFocus();
}

// By itself a check box moves the focus to another Focusable, but radio buttons are no Focusable.
void Wx::ImageSaveSettingsDialog::onAlphaKey(wxKeyEvent& event)
{
    if (!isTab(event))
        event.Skip();
    else if (wxRadioButton* const selected = selectedColorFormat())
        selected->SetFocus();
}

void Wx::ImageSaveSettingsDialog::selectNeighbour(std::size_t distance)
{
    const auto selected = std::ranges::find(m_colorFormats, selectedColorFormat(),
                                            &std::pair<ColorFormat, wxRadioButton*>::second);
    const auto index = static_cast<std::size_t>(selected - m_colorFormats.begin());
    wxRadioButton* const neighbour = m_colorFormats[(index + distance) % m_colorFormats.size()].second;
    neighbour->SetValue(true);
    neighbour->SetFocus();
}

// A modal dialog must outlive its event loop. A program that destroys all its windows ends the dialog.
bool Wx::ImageSaveSettingsDialog::Destroy()
{
    end(wxID_CANCEL);
    return true;
}

// The parent would delete the dialog while its event loop runs. The dialog leaves the parent and ends.
void Wx::ImageSaveSettingsDialog::onParentDestroyed(wxWindowDestroyEvent& event)
{
    event.Skip();
    if (event.GetEventObject() == GetParent())
        closeWithParent();
}

void Wx::ImageSaveSettingsDialog::closeWithParent()
{
    // Windows destroys the windows of an owner together with the owner.
    setOwnerFromNativeHandle(getWindowNativeHandle(this), {});
    GetParent()->RemoveChild(this);
    end(wxID_CANCEL);
}

} // namespace Nolvex
