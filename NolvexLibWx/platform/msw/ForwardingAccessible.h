// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <oleacc.h>

namespace Nolvex::Platform {

// COM interfaces have no virtual destructor: objects are deleted by their own Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An accessible object that answers every question as the system's own object for the window does. Derived
/// classes answer the questions that the system cannot answer.
class ForwardingAccessible : public IAccessible
{
public:
    ForwardingAccessible(const ForwardingAccessible&) = delete;
    ForwardingAccessible& operator=(const ForwardingAccessible&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT id, IDispatch** child) override;
    STDMETHODIMP get_accName(VARIANT id, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT id, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT id, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT id, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT id, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT id, BSTR* help) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT id, LONG* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT id, BSTR* shortcut) override;
    STDMETHODIMP get_accFocus(VARIANT* id) override;
    STDMETHODIMP get_accSelection(VARIANT* ids) override;
    STDMETHODIMP get_accDefaultAction(VARIANT id, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT id) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT id) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* id) override;
    STDMETHODIMP accDoDefaultAction(VARIANT id) override;
    STDMETHODIMP put_accName(VARIANT id, BSTR name) override;
    STDMETHODIMP put_accValue(VARIANT id, BSTR value) override;

protected:
    /// The caller owns the first reference.
    explicit ForwardingAccessible(HWND window);
    virtual ~ForwardingAccessible();

private:
    ULONG m_references = 1;
    IAccessible* m_system = nullptr; // null if the system could not make it
};

#pragma GCC diagnostic pop

} // namespace Nolvex::Platform
