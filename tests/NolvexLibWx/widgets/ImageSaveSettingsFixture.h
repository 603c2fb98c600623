// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/widgets/CheckBox.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/radiobut.h>
#include <wx/timer.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Nolvex::Tests {

/// Runs a script in each modal dialog that is shown while the object lives, as soon as the dialog takes
/// input. Message dialogs are left to a MessageDialogDriver. A dialog that is still up long after is ended,
/// and the test fails.
class DialogScript : public wxModalDialogHook
{
public:
    explicit DialogScript(std::function<void(wxDialog&)> script) : m_script(std::move(script))
    {
        Register();
        m_watchdog.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { endDialog(); });
    }

    ~DialogScript() override { Unregister(); }

    /// The number of dialogs that have been shown.
    int dialogs() const { return m_dialogs; }

protected:
    int Enter(wxDialog* dialog) override
    {
        if (dynamic_cast<Wx::MessageDialog*>(dialog) != nullptr)
            return wxID_NONE;
        ++m_dialogs;
        m_dialog = dialog;
        m_watchdog.StartOnce(TIME_LIMIT);
        dialog->CallAfter([this, dialog] {
            EXPECT_TRUE(pumpUntil([dialog] { return dialog->IsActive() && dialog->IsShownOnScreen(); }));
            pumpEvents();
            m_script(*dialog);
        });
        return wxID_NONE;
    }

    void Exit(wxDialog* dialog) override
    {
        if (m_dialog == dialog)
            m_watchdog.Stop();
    }

private:
    static constexpr int TIME_LIMIT = 20'000; // milliseconds

    void endDialog() const
    {
        ADD_FAILURE() << "the script has left the dialog open";
        if (m_dialog && m_dialog->IsModal())
            m_dialog->EndModal(wxID_CANCEL);
    }

    std::function<void(wxDialog&)> m_script;
    wxWeakRef<wxDialog> m_dialog;
    wxTimer m_watchdog;
    int m_dialogs = 0;
};

/// Writes down how it is asked.
struct RecordingProvider : Wx::ImageSaveSettingsDialog::IDefaultsProvider
{
    Optional<Wx::ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t flags) override
    {
        calls.push_back("get " + std::to_string(static_cast<int>(format)) + " " + std::to_string(flags));
        return remembered;
    }

    void storeSettings(ImageFormat format, const Wx::ImageSaveSettings& settings) override
    {
        calls.push_back("store " + std::to_string(static_cast<int>(format)));
        remembered = settings;
    }

    Optional<Wx::ImageSaveSettings> remembered;
    std::vector<std::string> calls;
};

/// A shown frame, from which the dialog is requested.
struct ImageSaveSettingsFixture : FrameFixture
{
    using Dialog = Wx::ImageSaveSettingsDialog;
    using Settings = Wx::ImageSaveSettings;
    using Result = Optional<Settings>;

    ImageSaveSettingsFixture() { showFrame(); }

    /// Requests the settings while the script operates the dialog, which must come.
    Result request(ImageFormat format, std::function<void(wxDialog&)> script,
                   Dialog::IDefaultsProvider* defaults = nullptr)
    {
        const DialogScript watched(std::move(script));
        const Result result = Dialog::requestSettingsFromUser(frame, format, defaults);
        EXPECT_EQ(watched.dialogs(), 1);
        return result;
    }

    static std::vector<wxRadioButton*> radioButtons(wxWindow& parent)
    {
        std::vector<wxRadioButton*> found;
        for (wxWindow* child : parent.GetChildren()) {
            if (auto* button = dynamic_cast<wxRadioButton*>(child))
                found.push_back(button);
            for (wxRadioButton* button : radioButtons(*child))
                found.push_back(button);
        }
        return found;
    }

    /// Returns null if no button is selected.
    static wxRadioButton* selectedButton(wxDialog& dialog)
    {
        wxRadioButton* selected = nullptr;
        for (wxRadioButton* button : radioButtons(dialog)) {
            if (button->GetValue()) {
                EXPECT_EQ(selected, nullptr);
                selected = button;
            }
        }
        return selected;
    }

    static wxString selectedLabel(wxDialog& dialog)
    {
        const wxRadioButton* const selected = selectedButton(dialog);
        return selected == nullptr ? wxString() : selected->GetLabel();
    }

    /// Returns null if the dialog has no check box.
    static Wx::CheckBox* alphaBox(wxDialog& dialog)
    {
        constexpr int ALPHA_ID = 40;
        return dynamic_cast<Wx::CheckBox*>(dialog.FindWindow(ALPHA_ID));
    }

    static void click(wxWindow& window) { clickAt(&window, wxPoint(8, window.GetSize().y / 2)); }

    /// Clicks a button that ends the dialog.
    static void clickButton(wxDialog& dialog, int id)
    {
        wxWindow* const button = dialog.FindWindow(id);
        ASSERT_NE(button, nullptr);
        click(*button);
    }
};

} // namespace Nolvex::Tests
