// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <functional>

namespace Nolvex::Tests {

/// Returns the line of the StopException of message dialogs that the function throws, or 0 if it throws none.
inline int stopLine(const std::function<void()>& function)
{
    try {
        function();
    } catch (const StopException& stop) {
        EXPECT_EQ(stop.file(), "MessageDialog");
        return stop.line();
    }
    return 0;
}

} // namespace Nolvex::Tests
