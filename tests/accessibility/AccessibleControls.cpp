// SPDX-License-Identifier: MIT
// A window with one control of each kind, for programs that read and operate it the way a screen reader does.
// The controls change labels, come and go, and "Close" ends the program.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/Button.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/DropdownButton.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "NolvexLibWx/widgets/Spinner.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticLine.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "NolvexLibWx/widgets/TextButton.h"
#include "NolvexLibWx/widgets/TextCtrl.h"

#include <wx/frame.h>
#include <wx/sizer.h>

#include <cstdio>
#include <memory>
#include <utility>

namespace {

using namespace Nolvex;

using Colours = Array<Wx::ComboBox::Item>;

constexpr auto PUSH = Wx::Button::Behavior::PUSH;

// A picker without a window. The user tries a colour that cannot be displayed and chooses another.
class QuickPicker : public IColorPicker
{
public:
    void setPreviewCallback(const Function<void(const Rgb&)>& onPreview) override { m_onPreview = onPreview; }

    void setCommitCallback(const Function<void(const Rgb&)>& onCommit) override { m_onCommit = onCommit; }

    void runModal() override
    {
        m_onPreview({2, 2, 2, 1});
        m_onCommit({1.5f, -0.25f, 0.1f, 1});
    }

    wxPoint getPosition() const override { return wxDefaultPosition; }

private:
    Function<void(const Rgb&)> m_onPreview;
    Function<void(const Rgb&)> m_onCommit;
};

class QuickPickers : public IColorPickerFactory
{
public:
    AutoPtr<IColorPicker> createPicker(WindowHandle /*owner*/, const String& /*title*/,
                                       const wxPoint& position, const Rgb& /*initial*/) override
    {
        m_position = position;
        return std::make_unique<QuickPicker>();
    }

    wxPoint position() const { return m_position; }

private:
    wxPoint m_position;
};

class Controls
{
public:
    Controls()
        : m_frame(new wxFrame(nullptr, wxID_ANY, "Accessible controls")),
          m_page(new wxPanel(m_frame)),
          m_sizer(new wxBoxSizer(wxVERTICAL))
    {
        m_page->SetSizer(m_sizer);
        addLabel();
        addButtons();
        addSwitches();
        addPanel();
        addUnlabelled();
        addChoices();
        addSwatch();
        // Assistive technology waits for the end of a click, so the dialogs are shown afterwards.
        addButton(L"Ask", [this] { m_page->CallAfter([this] { ask(); }); });
        addButton(L"Save as", [this] { m_page->CallAfter([this] { chooseSettings(); }); });
        addButton(L"Close", [this] { m_frame->Close(); });
        const wxSize size = m_page->GetBestSize();
        m_frame->SetClientSize(size.x, 2 * size.y); // leaves room for added and unfolded controls
        m_frame->Show();
        m_wrap->SetFocus();
    }

private:
    void add(wxWindow* control) { m_sizer->Add(control, 0, wxEXPAND | wxALL, 2); }

    Wx::Button* addButton(const wxString& label, Function<void()> onClick,
                          Wx::Button::Behavior behavior = PUSH, bool enabled = true)
    {
        auto* button = new Wx::Button(m_page, Wx::GuiSkin::DEFAULT(), wxID_ANY, label, wxBitmap(), wxBitmap(),
                                      std::move(onClick), behavior, enabled, OskaBorderState::ENABLED);
        add(button);
        return button;
    }

    void ask()
    {
        const bool yes = Wx::showYesNoDialog(Wx::getWindowNativeHandle(m_frame), L"Question",
                                             L"Overwrite the file?", Wx::MessageDialogIcon::QUESTION);
        m_status->SetLabel(yes ? "Answered yes" : "Answered no");
    }

    void chooseSettings()
    {
        const auto settings =
            Wx::ImageSaveSettingsDialog::requestSettingsFromUser(m_frame, ImageFormat::PNG, nullptr);
        if (settings)
            m_status->SetLabel(wxString::Format("%s in colour format %d",
                                                settings->includeAlpha ? "Alpha" : "No alpha",
                                                static_cast<int>(settings->colorFormat)));
        else
            m_status->SetLabel("Not saved");
    }

    void addLabel()
    {
        m_status = new Wx::StaticText(m_page, wxID_ANY, L"Black & white");
        add(m_status);
    }

    void addButtons()
    {
        m_save = addButton(L"Save", [this] {
            m_save->SetLabel(L"Save again");
            m_status->SetLabel(L"Saved");
        });
        addButton(
            L"Delete", [this] { m_status->SetLabel(L"Deleted"); }, PUSH, false);
        // A click on the added button removes that button.
        addButton(L"Add", [this] {
            m_added = addButton(L"Added", [this] { m_added->Destroy(); });
            m_page->Layout();
        });
        add(new Wx::DropdownButton(
            m_page, Wx::GuiSkin::DEFAULT(), {wxID_ANY, wxID_ANY}, {L"Open", L"Open copy"}, wxBitmap(),
            wxBitmap(),
            {[this] { m_status->SetLabel(L"Opened"); }, [this] { m_status->SetLabel(L"Opened a copy"); }},
            Wx::DropdownButton::Behavior::PUSH, true));
        add(new Wx::TextButton(m_page, wxID_ANY, L"\u00dcber uns \u2026",
                               [this] { m_status->SetLabel(L"Read"); }));
    }

    void addSwitches()
    {
        addButton(L"Bold", {}, Wx::Button::Behavior::TOGGLE);
        addButton(L"Italic", {}, Wx::Button::Behavior::TOGGLE)->setToggled(true);
        m_wrap = new Wx::CheckBox(m_page, wxID_ANY, L"&Wrap lines");
        m_wrap->setChangeCallback([this](bool on) { m_status->SetLabel(on ? "Wrapped" : "Not wrapped"); });
        add(m_wrap);
        addButton(L"Rename", [this] { m_wrap->SetLabel(L"Break && wrap"); });
    }

    void addPanel()
    {
        auto* content = new Wx::StaticText(m_page, wxID_ANY, L"Contents");
        auto* panel = new Wx::CollapsiblePanel(m_page, Wx::GuiSkin::DEFAULT(), L"Details", content);
        panel->setToggleCallback(
            [panel](bool collapsed) { panel->SetLabel(collapsed ? "Details" : "All details"); });
        add(panel);
    }

    void addUnlabelled()
    {
        auto* icon = addButton(L"", [this] { m_status->SetLabel(L"Printed"); });
        Wx::setAccessibleName(*icon, L"Print");
        icon->setTooltip(L"Prints the page");
        auto* picture = new Wx::StaticBitmap(m_page, wxID_ANY, wxBitmap(20, 10));
        Wx::setAccessibleName(*picture, L"Red square");
        add(picture);
        add(new Wx::StaticLine(m_page, wxHORIZONTAL));
        auto* log = new Wx::TextCtrl(m_page, wxID_ANY, {}, wxDefaultPosition, {80, 20},
                                     wxTE_MULTILINE | wxTE_READONLY);
        Wx::setAccessibleName(*log, L"Messages");
        add(log);
    }

    void addChoices()
    {
        auto* amount = new Wx::Spinner(m_page, wxID_ANY, 60, 0, 10, 3, 1, 0.5f);
        amount->SetLabel(L"Amount");
        amount->callOnValueChange([this](float value) {
            m_status->SetLabel(wxString::Format("Amount %g", static_cast<double>(value)));
        });
        m_sizer->Add(amount, 0, wxALL, 2);
        m_colours = new Wx::ComboBox(
            m_page, wxID_ANY, 80,
            [this](int id) { m_status->SetLabel(wxString::Format("Painted in colour %d", id)); }, {}, true);
        m_colours->setData(Colours{{L"Red", 1, {}}, {L"Green", 2, {}}, {L"Blue", 3, {}}});
        Wx::setAccessibleName(*m_colours, L"Colour");
        add(m_colours);
        addButton(L"Mix", [this] { m_colours->setData(Colours{{L"Violet", 4, {}}, {L"Green", 2, {}}}); });
        addButton(L"Name", [this] { Wx::setAccessibleName(*m_colours, L"Paint"); });
    }

    void addSwatch()
    {
        auto pickers = std::make_unique<QuickPickers>();
        const QuickPickers* const asked = pickers.get();
        auto* swatch = new Wx::ColorPickerButton(std::move(pickers), m_page, L"Accent", wxSize(40, 20), true);
        swatch->setColor({128 / 255.0f, 64 / 255.0f, 32 / 255.0f, 1}, false);
        swatch->onChange = [this, asked](const Rgb&) {
            const wxPoint position = asked->position();
            m_status->SetLabel(wxString::Format("Accent chosen at %d %d", position.x, position.y));
        };
        m_sizer->Add(swatch, 0, wxALL, 2);
        addButton(L"Retitle", [swatch] { swatch->setTitle(L"Highlight"); });
    }

    wxFrame* m_frame;
    wxWindow* m_page;
    wxSizer* m_sizer;
    Wx::StaticText* m_status = nullptr;
    Wx::Button* m_save = nullptr;
    Wx::Button* m_added = nullptr;
    Wx::CheckBox* m_wrap = nullptr;
    Wx::ComboBox* m_colours = nullptr;
};

} // namespace

int main()
{
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    int result = 0;
    {
        const Controls controls;
        result = LibWx::runEventLoop();
    }
    LibWx::shutdown();
    return result;
}
