// SPDX-License-Identifier: MIT
#include "NolvexLibWx/Accessibility.h"

#include "NolvexLibWx/platform/msw/DescribedAccessible.h"

#include <wx/msw/private.h>

#include <commctrl.h>

#include <memory>

namespace Nolvex {

namespace {

using Changes = Wx::AccessibleRecord::Changes;

constexpr UINT_PTR SUBCLASS_ID = 1;
constexpr const wchar_t* DESCRIBED = L"NolvexDescribed";

// Belongs to the native window and is deleted with it.
struct Described
{
    explicit Described(wxWindow& control) : record(control) {}

    ~Described()
    {
        if (accessible != nullptr) {
            accessible->disconnect();
            accessible->Release();
        }
    }

    Described(const Described&) = delete;
    Described& operator=(const Described&) = delete;

    Wx::AccessibleRecord record;
    Platform::DescribedAccessible* accessible = nullptr; // made when first asked for
};

LRESULT answerGetObject(HWND window, WPARAM wParam, Described& described)
{
    if (described.accessible == nullptr) {
        described.accessible = new Platform::DescribedAccessible(window, described.record);
        described.record.markAnnounced();
    }
    return ::LresultFromObject(__uuidof(IAccessible), wParam, described.accessible);
}

LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                           DWORD_PTR data) noexcept
{
    auto* const described = reinterpret_cast<Described*>(data);
    // 64-bit programs may or may not extend the sign of this identifier.
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == static_cast<LONG>(OBJID_CLIENT) &&
        described->record.control() != nullptr)
        return answerGetObject(window, wParam, *described);
    if (message == WM_NCDESTROY) {
        ::RemovePropW(window, DESCRIBED);
        ::RemoveWindowSubclass(window, onMessage, SUBCLASS_ID);
        delete described;
    }
    return ::DefSubclassProc(window, message, wParam, lParam);
}

Described* findDescribed(HWND window)
{
    return static_cast<Described*>(::GetPropW(window, DESCRIBED));
}

Described* describe(wxWindow& control)
{
    const HWND window = GetHwndOf(&control);
    if (Described* const described = findDescribed(window))
        return described;
    auto described = std::make_unique<Described>(control);
    const auto data = reinterpret_cast<DWORD_PTR>(described.get());
    if (::SetWindowSubclass(window, onMessage, SUBCLASS_ID, data) == FALSE)
        return nullptr;
    ::SetPropW(window, DESCRIBED, described.get());
    return described.release();
}

void announce(HWND window, const Changes& changes, Optional<int> selected)
{
    const auto notify = [window](DWORD event, bool isWanted, LONG child = CHILDID_SELF) {
        if (isWanted)
            ::NotifyWinEvent(event, window, static_cast<LONG>(OBJID_CLIENT), child);
    };
    notify(EVENT_OBJECT_NAMECHANGE, changes.name);
    notify(EVENT_OBJECT_DESCRIPTIONCHANGE, changes.description);
    notify(EVENT_OBJECT_STATECHANGE, !changes.states.isEmpty());
    notify(EVENT_OBJECT_REORDER, changes.items != changes.itemsBefore);
    // The value of a list of choices is the selected choice.
    notify(EVENT_OBJECT_VALUECHANGE, changes.value || changes.selection);
    if (selected)
        notify(EVENT_OBJECT_SELECTION, changes.selection, *selected + 1);
}

} // namespace

void Wx::describeControl(wxWindow& control, AccessibleMaker maker)
{
    Described* const described = describe(control);
    if (described == nullptr)
        return;
    described->record.setMaker(maker);
    if (described->accessible != nullptr)
        described->record.markAnnounced();
}

void Wx::updateAccessible(wxWindow& control)
{
    const HWND window = GetHwndOf(&control);
    Described* const described = findDescribed(window);
    // Before assistive technology has asked for the accessible object, it holds no data that could be
    // outdated.
    if (described == nullptr || described->accessible == nullptr)
        return;
    const Changes changes = described->record.takeChanges();
    const AccessibleControl* const account = described->record.account();
    announce(window, changes, account != nullptr ? account->selectedItem() : Optional<int>());
}

void Wx::setAccessibleName(wxWindow& window, const String& name)
{
    if (Described* const described = describe(window))
        described->record.setName(name);
    updateAccessible(window);
}

void Wx::setAccessibleDescription(wxWindow& window, const String& description)
{
    if (Described* const described = describe(window))
        described->record.setDescription(description);
    updateAccessible(window);
}

} // namespace Nolvex
