// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/detail/AccessibleRecord.h"
#include "NolvexLibWx/platform/msw/ForwardingAccessible.h"

namespace Nolvex::Platform {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The accessible object of a described or named window. The items of the control are its simple children,
/// numbered from 1. The system's own object answers the questions that the record does not answer.
class DescribedAccessible : public ForwardingAccessible
{
public:
    DescribedAccessible(HWND window, Wx::AccessibleRecord& record);

    /// Must be called when the record is destroyed, because assistive technology may still hold this object.
    void disconnect() { m_record = nullptr; }

    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT id, IDispatch** child) override;
    STDMETHODIMP get_accName(VARIANT id, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT id, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT id, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT id, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT id, VARIANT* state) override;
    STDMETHODIMP get_accSelection(VARIANT* ids) override;
    STDMETHODIMP get_accDefaultAction(VARIANT id, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT id) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT id) override;
    STDMETHODIMP accDoDefaultAction(VARIANT id) override;
    STDMETHODIMP put_accValue(VARIANT id, BSTR value) override;

private:
    Wx::AccessibleControl* account() const;
    bool isItem(const VARIANT& id) const;
    bool isDescribed(const VARIANT& id) const;
    LONG states() const;
    LONG itemStates(int index) const;

    Wx::AccessibleRecord* m_record;
};

#pragma GCC diagnostic pop

} // namespace Nolvex::Platform
