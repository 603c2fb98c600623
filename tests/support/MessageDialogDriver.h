// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "support/Events.h"
#include "support/Gestures.h"

#include <wx/timer.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <utility>

namespace Nolvex::Tests {

/// Returns the children of the dialog that are of a class, in the order of their construction.
template<class Window>
Stack<Window*> childrenOf(const wxWindow& dialog)
{
    Stack<Window*> found;
    for (wxWindow* child : dialog.GetChildren()) {
        if (auto* wanted = dynamic_cast<Window*>(child))
            found.push_back(wanted);
    }
    return found;
}

inline Stack<Wx::AutoSizedButton*> buttonsOf(const wxWindow& dialog)
{
    return childrenOf<Wx::AutoSizedButton>(dialog);
}

inline wxString messageOf(const wxWindow& dialog)
{
    return childrenOf<Wx::StaticText>(dialog).front()->GetLabel();
}

/// Returns null if the dialog has no icon.
inline Wx::StaticBitmap* iconOf(const wxWindow& dialog)
{
    const Stack<Wx::StaticBitmap*> icons = childrenOf<Wx::StaticBitmap>(dialog);
    return icons.empty() ? nullptr : icons.front();
}

inline void clickButton(const wxWindow& dialog, std::size_t index)
{
    const wxWindow* const button = buttonsOf(dialog).at(index);
    clickAt(button, wxPoint(button->GetSize().x / 2, button->GetSize().y / 2));
}

/// Returns the message dialog that is shown modally above all others, or null.
inline Wx::MessageDialog* modalDialog()
{
    Wx::MessageDialog* last = nullptr;
    for (wxWindow* window : wxTopLevelWindows) {
        auto* const dialog = dynamic_cast<Wx::MessageDialog*>(window);
        if (dialog != nullptr && dialog->IsModal() && dialog->IsShown())
            last = dialog;
    }
    return last;
}

/// Operates the next message dialog that is shown modally. A dialog that is still up when it has been
/// operated, and a dialog that cannot be operated in time, fails the test and is ended, so that no test
/// hangs.
class MessageDialogDriver : private wxTimer
{
public:
    using Act = std::function<void(Wx::MessageDialog&)>;

    explicit MessageDialogDriver(Act act) : m_act(std::move(act))
    {
        m_watchdog.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { onLate(); });
        m_watchdogTimer.SetOwner(&m_watchdog);
        m_watchdogTimer.Start(LIMIT);
        Start(PERIOD);
    }

    ~MessageDialogDriver() override { EXPECT_TRUE(m_acted) << "no dialog was shown"; }

    static constexpr int ENDED_BY_WATCHDOG = -99;

private:
    static constexpr int PERIOD = 20;    // milliseconds
    static constexpr int LIMIT = 20'000; // milliseconds

    // A dialog whose event loop cannot be ended must not hang the run.
    void onLate()
    {
        constexpr int MAX_ATTEMPTS = 2;
        if (++m_attempts > MAX_ATTEMPTS)
            std::abort();
        endAll();
    }

    static void endAll()
    {
        while (Wx::MessageDialog* const dialog = modalDialog()) {
            ADD_FAILURE() << "the dialog \"" << dialog->GetTitle().utf8_str() << "\" is still up";
            dialog->EndModal(ENDED_BY_WATCHDOG);
        }
    }

    void Notify() override
    {
        const wxWeakRef<Wx::MessageDialog> dialog(modalDialog());
        if (!dialog)
            return;
        Stop();
        m_acted = true;
        EXPECT_TRUE(pumpUntil([&] { return !dialog || dialog->IsActive(); })) << "the dialog is not active";
        pumpEvents(GESTURE_TIME);
        if (dialog)
            m_act(*dialog);
        pumpUntil([&] { return !dialog || !dialog->IsShown(); }, 2000);
        if (dialog && dialog->IsShown())
            endAll();
    }

    Act m_act;
    bool m_acted = false;
    int m_attempts = 0;
    wxEvtHandler m_watchdog;
    wxTimer m_watchdogTimer;
};

} // namespace Nolvex::Tests
