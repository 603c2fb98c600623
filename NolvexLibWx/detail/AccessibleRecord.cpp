// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/AccessibleRecord.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Nolvex {

struct Wx::AccessibleRecord::Snapshot
{
    String name;
    String description;
    Flags<AccessibleState> states;
    Optional<AccessibleValue> value;
    String valueText;
    Optional<int> selectedItem;
    int itemCount = 0;
};

Wx::AccessibleRecord::AccessibleRecord(wxWindow& control) : m_control(&control) {}

Wx::AccessibleRecord::~AccessibleRecord() = default;

void Wx::AccessibleRecord::setMaker(AccessibleMaker maker)
{
    m_maker = maker;
    m_account.reset();
}

wxWindow* Wx::AccessibleRecord::control() const
{
    return m_control && !m_control->IsBeingDeleted() ? m_control.get() : nullptr;
}

Wx::AccessibleControl* Wx::AccessibleRecord::account()
{
    wxWindow* const window = control();
    if (window == nullptr || m_maker == nullptr)
        return nullptr;
    if (m_account == nullptr)
        m_account = m_maker(*window);
    return m_account.get();
}

String Wx::AccessibleRecord::name()
{
    if (!m_name.isEmpty())
        return m_name;
    const AccessibleControl* const told = account();
    return told != nullptr ? told->name() : String();
}

String Wx::AccessibleRecord::description()
{
    if (!m_description.isEmpty())
        return m_description;
    const AccessibleControl* const told = account();
    return told != nullptr ? told->description() : String();
}

bool Wx::AccessibleRecord::isOperable() const
{
    const wxWindow* const window = control();
    return window != nullptr && window->IsEnabled() && window->IsShownOnScreen();
}

bool Wx::AccessibleRecord::runLater(std::function<void(AccessibleControl&)> request)
{
    // The event dies with the control, and this record lives at least as long as the control.
    control()->CallAfter([this, request = std::move(request)] {
        // wxWidgets processes pending events where nothing catches exceptions.
        try {
            if (AccessibleControl* const told = isOperable() ? account() : nullptr)
                request(*told);
        } catch (...) {
            wxEvtHandler::WXConsumeException();
        }
    });
    return true;
}

bool Wx::AccessibleRecord::doAction(int index)
{
    const AccessibleControl* const told = isOperable() ? account() : nullptr;
    if (told == nullptr || index < 0 || index >= static_cast<int>(told->actions().size()))
        return false;
    return runLater([index](AccessibleControl& control) { control.doAction(index); });
}

bool Wx::AccessibleRecord::setValue(double value)
{
    const AccessibleControl* const told = isOperable() ? account() : nullptr;
    const Optional<AccessibleValue> range = told != nullptr ? told->value() : Optional<AccessibleValue>();
    if (!range || std::isnan(value) || told->states().has(AccessibleState::READ_ONLY))
        return false;
    const double bounded = std::max(range->minimum, std::min(range->maximum, value));
    return runLater([bounded](AccessibleControl& control) { control.setValue(bounded); });
}

bool Wx::AccessibleRecord::selectItem(int index)
{
    const AccessibleControl* const told = isOperable() ? account() : nullptr;
    if (told == nullptr || index < 0 || index >= told->itemCount())
        return false;
    return runLater([index](AccessibleControl& control) {
        // Another event may have taken items away in the meantime.
        if (index < control.itemCount())
            control.selectItem(index);
    });
}

Wx::AccessibleRecord::Snapshot Wx::AccessibleRecord::snapshot()
{
    Snapshot now{name(), description(), {}, {}, {}, {}, 0};
    if (const AccessibleControl* const told = account()) {
        now.states = told->states();
        now.value = told->value();
        now.valueText = told->valueText();
        now.selectedItem = told->selectedItem();
        now.itemCount = told->itemCount();
    }
    return now;
}

void Wx::AccessibleRecord::markAnnounced()
{
    m_announced = std::make_unique<Snapshot>(snapshot());
}

Wx::AccessibleRecord::Changes Wx::AccessibleRecord::takeChanges()
{
    if (m_announced == nullptr)
        return {};
    const Snapshot before = std::exchange(*m_announced, snapshot());
    const Snapshot& now = *m_announced;
    Changes changes;
    changes.name = now.name != before.name;
    changes.description = now.description != before.description;
    changes.value = now.value != before.value || now.valueText != before.valueText;
    changes.selection = now.selectedItem != before.selectedItem;
    changes.itemsBefore = before.itemCount;
    changes.items = now.itemCount;
    changes.states = Flags<AccessibleState>::fromBits(now.states.bits() ^ before.states.bits());
    return changes;
}

} // namespace Nolvex
