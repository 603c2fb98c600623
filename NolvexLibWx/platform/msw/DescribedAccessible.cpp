// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/msw/DescribedAccessible.h"

#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/StringConversions.h"

#include <cmath>

namespace Nolvex {

namespace {

using Wx::AccessibleRole;
using Wx::AccessibleState;

constexpr const wchar_t* SELECT = L"click";

LONG systemRole(AccessibleRole role)
{
    using enum AccessibleRole;
    switch (role) {
    case PUSH_BUTTON:
    case TOGGLE_BUTTON:
    case DISCLOSURE:
        return ROLE_SYSTEM_PUSHBUTTON;
    case DROPDOWN_BUTTON:
        return ROLE_SYSTEM_BUTTONDROPDOWN;
    case CHECK_BOX:
        return ROLE_SYSTEM_CHECKBUTTON;
    case LABEL:
        return ROLE_SYSTEM_STATICTEXT;
    case LINK:
        return ROLE_SYSTEM_LINK;
    case GROUP:
        return ROLE_SYSTEM_GROUPING;
    case IMAGE:
        return ROLE_SYSTEM_GRAPHIC;
    case SEPARATOR:
        return ROLE_SYSTEM_SEPARATOR;
    case SPINNER:
        return ROLE_SYSTEM_SPINBUTTON;
    case COMBO_BOX:
        return ROLE_SYSTEM_COMBOBOX;
    case SLIDER:
        return ROLE_SYSTEM_SLIDER;
    case BORDER:
        break;
    }
    return ROLE_SYSTEM_BORDER;
}

LONG toldStates(const Wx::AccessibleControl& account)
{
    const Flags<AccessibleState> told = account.states();
    LONG states = 0;
    // Windows has the state "pressed" for toggle buttons, and "checked" for check boxes.
    if (told.has(AccessibleState::CHECKED))
        states |= account.role() == AccessibleRole::CHECK_BOX ? STATE_SYSTEM_CHECKED : STATE_SYSTEM_PRESSED;
    if (told.has(AccessibleState::MIXED))
        states |= STATE_SYSTEM_MIXED;
    if (told.has(AccessibleState::EXPANDABLE))
        states |= told.has(AccessibleState::EXPANDED) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
    if (told.has(AccessibleState::HAS_POPUP))
        states |= STATE_SYSTEM_HASPOPUP;
    if (told.has(AccessibleState::READ_ONLY))
        states |= STATE_SYSTEM_READONLY;
    return states;
}

HRESULT give(BSTR* target, const String& text)
{
    if (target == nullptr)
        return E_POINTER;
    *target = text.isEmpty() ? nullptr : ::SysAllocString(Wx::toWxString(text).wc_str());
    return text.isEmpty() ? S_FALSE : S_OK;
}

HRESULT give(VARIANT* target, LONG number)
{
    if (target == nullptr)
        return E_POINTER;
    target->vt = VT_I4;
    target->lVal = number;
    return S_OK;
}

// The choices of a button are made; only those of a list can be selected.
bool isSelectable(const Wx::AccessibleControl& account)
{
    return account.role() != AccessibleRole::DROPDOWN_BUTTON;
}

// A spinner that gives no text is shown as its number in the C locale.
String shownValue(const Wx::AccessibleValue& value)
{
    return value.text.isEmpty() ? Wx::toString(wxString::FromCDouble(value.current)) : value.text;
}

} // namespace

Platform::DescribedAccessible::DescribedAccessible(HWND window, Wx::AccessibleRecord& record)
    : ForwardingAccessible(window), m_record(&record)
{}

Wx::AccessibleControl* Platform::DescribedAccessible::account() const
{
    return m_record != nullptr ? m_record->account() : nullptr;
}

bool Platform::DescribedAccessible::isItem(const VARIANT& id) const
{
    const Wx::AccessibleControl* const told = account();
    return told != nullptr && id.vt == VT_I4 && id.lVal > 0 && id.lVal <= told->itemCount();
}

// Returns true if `id` means the window itself and the window has an account, not only a name.
bool Platform::DescribedAccessible::isDescribed(const VARIANT& id) const
{
    return account() != nullptr && id.vt == VT_I4 && id.lVal == CHILDID_SELF;
}

STDMETHODIMP Platform::DescribedAccessible::get_accChildCount(LONG* count)
{
    const Wx::AccessibleControl* const told = account();
    if (count == nullptr || told == nullptr || told->itemCount() == 0)
        return ForwardingAccessible::get_accChildCount(count);
    *count = told->itemCount();
    return S_OK;
}

STDMETHODIMP Platform::DescribedAccessible::get_accChild(VARIANT id, IDispatch** child)
{
    if (child == nullptr || !isItem(id))
        return ForwardingAccessible::get_accChild(id, child);
    *child = nullptr;
    return S_FALSE; // the child has no object of its own
}

STDMETHODIMP Platform::DescribedAccessible::get_accName(VARIANT id, BSTR* name)
{
    if (isItem(id))
        return give(name, account()->itemName(id.lVal - 1));
    const bool isSelf = id.vt == VT_I4 && id.lVal == CHILDID_SELF;
    const String own = isSelf && m_record != nullptr ? m_record->name() : String();
    return own.isEmpty() && !isDescribed(id) ? ForwardingAccessible::get_accName(id, name) : give(name, own);
}

STDMETHODIMP Platform::DescribedAccessible::get_accValue(VARIANT id, BSTR* value)
{
    if (isItem(id))
        return give(value, String());
    if (!isDescribed(id))
        return ForwardingAccessible::get_accValue(id, value);
    const Wx::AccessibleControl& told = *account();
    if (const Optional<Wx::AccessibleValue> number = told.value())
        return give(value, shownValue(*number));
    if (const String text = told.valueText(); !text.isEmpty())
        return give(value, text);
    const Optional<int> selected = told.selectedItem();
    if (told.itemCount() > 0)
        return give(value, selected ? told.itemName(*selected) : String());
    return ForwardingAccessible::get_accValue(id, value);
}

STDMETHODIMP Platform::DescribedAccessible::get_accDescription(VARIANT id, BSTR* description)
{
    if (isItem(id))
        return give(description, String());
    const bool isSelf = id.vt == VT_I4 && id.lVal == CHILDID_SELF;
    const String own = isSelf && m_record != nullptr ? m_record->description() : String();
    return own.isEmpty() ? ForwardingAccessible::get_accDescription(id, description) : give(description, own);
}

STDMETHODIMP Platform::DescribedAccessible::get_accRole(VARIANT id, VARIANT* role)
{
    if (isItem(id))
        return give(role, isSelectable(*account()) ? ROLE_SYSTEM_LISTITEM : ROLE_SYSTEM_MENUITEM);
    return isDescribed(id) ? give(role, systemRole(account()->role()))
                           : ForwardingAccessible::get_accRole(id, role);
}

LONG Platform::DescribedAccessible::states() const
{
    const wxWindow& window = *m_record->control();
    LONG states = toldStates(*account());
    if (!window.IsEnabled())
        states |= STATE_SYSTEM_UNAVAILABLE;
    if (!window.IsShownOnScreen())
        states |= STATE_SYSTEM_INVISIBLE;
    if (Wx::isTabStop(window))
        states |= STATE_SYSTEM_FOCUSABLE;
    if (window.HasFocus())
        states |= STATE_SYSTEM_FOCUSED;
    return states;
}

LONG Platform::DescribedAccessible::itemStates(int index) const
{
    LONG states = isSelectable(*account()) ? STATE_SYSTEM_SELECTABLE : 0;
    if (account()->selectedItem() == Optional<int>(index))
        states |= STATE_SYSTEM_SELECTED;
    if (!m_record->isOperable())
        states |= STATE_SYSTEM_UNAVAILABLE;
    return states;
}

STDMETHODIMP Platform::DescribedAccessible::get_accState(VARIANT id, VARIANT* state)
{
    if (isItem(id))
        return give(state, itemStates(id.lVal - 1));
    return isDescribed(id) ? give(state, states()) : ForwardingAccessible::get_accState(id, state);
}

STDMETHODIMP Platform::DescribedAccessible::get_accSelection(VARIANT* ids)
{
    const Wx::AccessibleControl* const told = account();
    if (ids == nullptr || told == nullptr || told->itemCount() == 0)
        return ForwardingAccessible::get_accSelection(ids);
    if (const Optional<int> selected = told->selectedItem())
        return give(ids, *selected + 1);
    ids->vt = VT_EMPTY;
    return S_OK;
}

STDMETHODIMP Platform::DescribedAccessible::get_accDefaultAction(VARIANT id, BSTR* action)
{
    if (isItem(id))
        return give(action, SELECT);
    if (!isDescribed(id))
        return ForwardingAccessible::get_accDefaultAction(id, action);
    const Array<String> actions = account()->actions();
    return give(action, actions.empty() ? String() : actions.front());
}

STDMETHODIMP Platform::DescribedAccessible::accSelect(LONG flags, VARIANT id)
{
    if (!isItem(id))
        return ForwardingAccessible::accSelect(flags, id);
    const bool isSelection = (flags & (SELFLAG_TAKESELECTION | SELFLAG_ADDSELECTION)) != 0;
    return isSelection && m_record->selectItem(id.lVal - 1) ? S_OK : S_FALSE;
}

STDMETHODIMP Platform::DescribedAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                                        VARIANT id)
{
    // An item is where its control is, since the list may be closed.
    if (isItem(id))
        id.lVal = CHILDID_SELF;
    return ForwardingAccessible::accLocation(left, top, width, height, id);
}

STDMETHODIMP Platform::DescribedAccessible::accDoDefaultAction(VARIANT id)
{
    if (isItem(id))
        return m_record->selectItem(id.lVal - 1) ? S_OK : E_FAIL;
    if (!isDescribed(id))
        return ForwardingAccessible::accDoDefaultAction(id);
    if (account()->actions().empty())
        return DISP_E_MEMBERNOTFOUND;
    return m_record->doAction(0) ? S_OK : E_FAIL;
}

STDMETHODIMP Platform::DescribedAccessible::put_accValue(VARIANT id, BSTR value)
{
    if (!isDescribed(id) || value == nullptr)
        return ForwardingAccessible::put_accValue(id, value);
    // Both decimal points are accepted in every language.
    wxString text(value);
    text.Replace(wxS(","), wxS("."));
    double number = 0;
    if (!text.ToCDouble(&number) || !std::isfinite(number))
        return E_INVALIDARG;
    return m_record->setValue(number) ? S_OK : E_FAIL;
}

} // namespace Nolvex
