// SPDX-License-Identifier: MIT
#include "NolvexLibWx/platform/TaskbarList.h"

#include "NolvexLibWx/platform/gtk/LauncherEntry.h"

#include <algorithm>
#include <utility>

namespace Nolvex {

namespace {

using Platform::LauncherEntry;
using Platform::LauncherProgress;
using Platform::TaskbarState;

class LauncherTaskbarList : public Platform::TaskbarList
{
public:
    explicit LauncherTaskbarList(std::shared_ptr<LauncherEntry> entry) : m_entry(std::move(entry)) {}

    ~LauncherTaskbarList() override { m_entry->remove(this); }

    void setProgressState(WindowHandle window, TaskbarState state) override
    {
        // NORMAL is shown together with the value.
        if (state == TaskbarState::NO_PROGRESS)
            show(window, {});
        else if (state == TaskbarState::INDETERMINATE)
            show(window, {.visible = true, .fraction = 0});
    }

    void setProgressValue(WindowHandle window, std::int32_t completed, std::int32_t total) override
    {
        const double fraction = static_cast<double>(completed) / total;
        show(window, {.visible = true, .fraction = std::clamp(fraction, 0.0, 1.0)});
    }

private:
    // The entry belongs to the program, not to a window, but no window shows no progress.
    void show(WindowHandle window, LauncherProgress progress)
    {
        if (window)
            m_entry->show(this, progress);
    }

    std::shared_ptr<LauncherEntry> m_entry;
};

} // namespace

std::unique_ptr<Platform::TaskbarList> Platform::createTaskbarList()
{
    std::shared_ptr<LauncherEntry> entry = LauncherEntry::ofProgram();
    return entry ? std::make_unique<LauncherTaskbarList>(std::move(entry)) : nullptr;
}

} // namespace Nolvex
