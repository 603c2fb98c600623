// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/msw/ForwardingAccessible.h"

namespace Nolvex {

Platform::ForwardingAccessible::ForwardingAccessible(HWND window)
{
    void* object = nullptr;
    if (SUCCEEDED(::CreateStdAccessibleObject(window, static_cast<LONG>(OBJID_CLIENT), __uuidof(IAccessible),
                                              &object)))
        m_system = static_cast<IAccessible*>(object);
}

Platform::ForwardingAccessible::~ForwardingAccessible()
{
    if (m_system != nullptr)
        m_system->Release();
}

STDMETHODIMP Platform::ForwardingAccessible::QueryInterface(REFIID iid, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    const bool isKnown = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IDispatch) ||
                         ::IsEqualIID(iid, __uuidof(IAccessible));
    *object = isKnown ? static_cast<IAccessible*>(this) : nullptr;
    if (!isKnown)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

// The objects belong to the main thread, to which COM brings all calls.

STDMETHODIMP_(ULONG) Platform::ForwardingAccessible::AddRef()
{
    return ++m_references;
}

STDMETHODIMP_(ULONG) Platform::ForwardingAccessible::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

STDMETHODIMP Platform::ForwardingAccessible::GetTypeInfoCount(UINT* count)
{
    return m_system != nullptr ? m_system->GetTypeInfoCount(count) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info)
{
    return m_system != nullptr ? m_system->GetTypeInfo(index, locale, info) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count,
                                                           LCID locale, DISPID* ids)
{
    return m_system != nullptr ? m_system->GetIDsOfNames(iid, names, count, locale, ids) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                                    DISPPARAMS* parameters, VARIANT* result,
                                                    EXCEPINFO* exception, UINT* badArgument)
{
    return m_system != nullptr
               ? m_system->Invoke(member, iid, locale, flags, parameters, result, exception, badArgument)
               : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accParent(IDispatch** parent)
{
    return m_system != nullptr ? m_system->get_accParent(parent) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accChildCount(LONG* count)
{
    return m_system != nullptr ? m_system->get_accChildCount(count) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accChild(VARIANT id, IDispatch** child)
{
    return m_system != nullptr ? m_system->get_accChild(id, child) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accName(VARIANT id, BSTR* name)
{
    return m_system != nullptr ? m_system->get_accName(id, name) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accValue(VARIANT id, BSTR* value)
{
    return m_system != nullptr ? m_system->get_accValue(id, value) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accDescription(VARIANT id, BSTR* description)
{
    return m_system != nullptr ? m_system->get_accDescription(id, description) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accRole(VARIANT id, VARIANT* role)
{
    return m_system != nullptr ? m_system->get_accRole(id, role) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accState(VARIANT id, VARIANT* state)
{
    return m_system != nullptr ? m_system->get_accState(id, state) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accHelp(VARIANT id, BSTR* help)
{
    return m_system != nullptr ? m_system->get_accHelp(id, help) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accHelpTopic(BSTR* file, VARIANT id, LONG* topic)
{
    return m_system != nullptr ? m_system->get_accHelpTopic(file, id, topic) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accKeyboardShortcut(VARIANT id, BSTR* shortcut)
{
    return m_system != nullptr ? m_system->get_accKeyboardShortcut(id, shortcut) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accFocus(VARIANT* id)
{
    return m_system != nullptr ? m_system->get_accFocus(id) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accSelection(VARIANT* ids)
{
    return m_system != nullptr ? m_system->get_accSelection(ids) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::get_accDefaultAction(VARIANT id, BSTR* action)
{
    return m_system != nullptr ? m_system->get_accDefaultAction(id, action) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::accSelect(LONG flags, VARIANT id)
{
    return m_system != nullptr ? m_system->accSelect(flags, id) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                                         VARIANT id)
{
    return m_system != nullptr ? m_system->accLocation(left, top, width, height, id) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end)
{
    return m_system != nullptr ? m_system->accNavigate(direction, start, end) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::accHitTest(LONG left, LONG top, VARIANT* id)
{
    return m_system != nullptr ? m_system->accHitTest(left, top, id) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::accDoDefaultAction(VARIANT id)
{
    return m_system != nullptr ? m_system->accDoDefaultAction(id) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::put_accName(VARIANT id, BSTR name)
{
    return m_system != nullptr ? m_system->put_accName(id, name) : E_NOTIMPL;
}

STDMETHODIMP Platform::ForwardingAccessible::put_accValue(VARIANT id, BSTR value)
{
    return m_system != nullptr ? m_system->put_accValue(id, value) : E_NOTIMPL;
}

} // namespace Nolvex
