// SPDX-License-Identifier: MIT
#include "NolvexLib/DevelopmentEnviro.h"

#include "NolvexLib/platform/EnvironmentVariable.h"

#include <atomic>

namespace Nolvex {

namespace {

enum class Setting
{
    UNKNOWN,
    OFF,
    ON,
};

std::atomic<Setting> currentSetting = Setting::UNKNOWN;

Setting readEnvironment()
{
    const String value = Detail::environmentVariable("NOLVEX_DEVELOPMENT");
    return value.isEmpty() || value == L"0" ? Setting::OFF : Setting::ON;
}

} // namespace

bool isDevelopmentEnviro()
{
    Setting setting = currentSetting;
    if (setting == Setting::UNKNOWN) {
        const Setting read = readEnvironment();
        // If this fails, another thread has stored a setting meanwhile. `setting` then holds that setting,
        // which counts.
        if (currentSetting.compare_exchange_strong(setting, read))
            setting = read;
    }
    return setting == Setting::ON;
}

void setDevelopmentEnviro(bool isDevelopment)
{
    currentSetting = isDevelopment ? Setting::ON : Setting::OFF;
}

} // namespace Nolvex
