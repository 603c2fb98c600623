// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TaskbarList.h"

#include <wx/msw/wrapwin.h>

#include <shobjidl.h>

namespace Nolvex {

namespace {

using Platform::TaskbarState;

static_assert(static_cast<int>(TaskbarState::NO_PROGRESS) == TBPF_NOPROGRESS);
static_assert(static_cast<int>(TaskbarState::INDETERMINATE) == TBPF_INDETERMINATE);
static_assert(static_cast<int>(TaskbarState::NORMAL) == TBPF_NORMAL);

class ShellTaskbarList : public Platform::TaskbarList
{
public:
    /// Takes over the reference of the caller.
    explicit ShellTaskbarList(ITaskbarList3* shell) : m_shell(shell) {}

    ~ShellTaskbarList() override { m_shell->Release(); }

    // The results are ignored: a window that has no button, or exists no longer, shows nothing.

    void setProgressState(WindowHandle window, TaskbarState state) override
    {
        m_shell->SetProgressState(static_cast<HWND>(window.native), static_cast<TBPFLAG>(state));
    }

    void setProgressValue(WindowHandle window, std::int32_t completed, std::int32_t total) override
    {
        // Values below 0 become very large ones, which the shell shows as a full bar.
        m_shell->SetProgressValue(static_cast<HWND>(window.native), static_cast<ULONGLONG>(completed),
                                  static_cast<ULONGLONG>(total));
    }

private:
    ITaskbarList3* m_shell;
};

// Leaving the last apartment of the process unloads the libraries of COM, and the object with them. The
// object of a program that does not use COM itself must stay alive, so its library stays loaded.
void keepLibraryLoaded(ITaskbarList3* object)
{
    HMODULE library = nullptr;
    const auto* const functions = *reinterpret_cast<const wchar_t* const*>(object);
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, functions,
                       &library);
}

ITaskbarList3* createInCurrentApartment()
{
    void* object = nullptr;
    CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3, &object);
    auto* const shell = static_cast<ITaskbarList3*>(object);
    if (shell != nullptr)
        keepLibraryLoaded(shell);
    return shell;
}

} // namespace

std::unique_ptr<Platform::TaskbarList> Platform::createTaskbarList()
{
    const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ITaskbarList3* const shell = createInCurrentApartment();
    // A thread that is in another kind of apartment has not entered this one, and stays where it is.
    if (SUCCEEDED(entered))
        CoUninitialize();
    return shell == nullptr ? nullptr : std::make_unique<ShellTaskbarList>(shell);
}

} // namespace Nolvex
