// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/Accessibility.h"

#include <wx/weakref.h>
#include <wx/window.h>

#include <functional>

namespace Nolvex::Wx {

/// Holds the data that both systems need for a described or named window: the account, the texts that were
/// set from outside, and the state that was announced last. Each system keeps the record together with the
/// native window.
class AccessibleRecord : private Noncopyable
{
public:
    /// The differences from the last announcement.
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

    /// Returns null if the control has not been described or is being destroyed.
    AccessibleControl* account();

    /// Returns null if the control is being destroyed.
    wxWindow* control() const;

    /// Returns an empty text if neither the account nor setName has given a name.
    String name();
    String description();

    /// Returns true if the account may be asked to change something.
    bool isOperable() const;

    /// These three functions return true if the request makes sense now. The account's function runs later,
    /// because assistive technology waits for the answer to its request and a callback may open a dialog.
    /// What the function throws goes to wxApp::OnExceptionInMainLoop.
    bool doAction(int index);
    bool setValue(double value);
    bool selectItem(int index);

    /// Remembers the present state as announced.
    void markAnnounced();

    /// Returns no differences before the first call of `markAnnounced`.
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
