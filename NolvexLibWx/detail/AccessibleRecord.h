// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Accessibility.h"

#include <wx/weakref.h>
#include <wx/window.h>

#include <functional>

namespace Nolvex::Wx {

/// What both systems need to know of one described or named window: its account, the texts that were set from
/// outside, and the state that was announced last. Each system keeps the record together with the native
/// window.
class AccessibleRecord : private Noncopyable
{
public:
    /// What differs from the last announcement.
    struct Changes
    {
        bool name = false;
        bool description = false;
        bool value = false;
        bool selection = false;
        int itemsBefore = 0;
        int items = 0;
        Flags<AccessibleState> states;
    };

    explicit AccessibleRecord(wxWindow& control);
    ~AccessibleRecord();

    void setMaker(AccessibleMaker maker);

    void setName(const String& name) { m_name = name; }

    void setDescription(const String& description) { m_description = description; }

    /// Null if the control has not been described or is being destroyed.
    AccessibleControl* account();

    /// Null if the control is being destroyed.
    wxWindow* control() const;

    /// Empty if neither the account nor setName has given a name.
    String name();
    String description();

    /// Whether the account may be asked to change something.
    bool isOperable() const;

    /// Each of the three runs the account's function later, as assistive technology waits for the answer to
    /// its request, and what follows may open a dialog. They return whether the request makes sense now.
    bool doAction(int index);
    bool setValue(double value);
    bool selectItem(int index);

    /// Takes the present state for announced.
    void markAnnounced();

    /// Nothing before the first call of `markAnnounced`.
    Changes takeChanges();

private:
    struct Snapshot;

    Snapshot snapshot();
    bool runLater(std::function<void(AccessibleControl&)> request);

    wxWeakRef<wxWindow> m_control;
    AccessibleMaker m_maker = nullptr;
    std::unique_ptr<AccessibleControl> m_account;
    std::unique_ptr<Snapshot> m_announced;
    String m_name;
    String m_description;
};

} // namespace Nolvex::Wx
