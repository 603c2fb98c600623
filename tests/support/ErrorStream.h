// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <functional>

namespace Nolvex::Tests {

struct MessageBoxTexts
{
    String title;
    String message;
};

/// Calls the function while the process has no standard error stream. Where systems show errors in message
/// boxes then, waits for the box with this title, closes the box and returns its texts. The texts are empty
/// if no box came.
Optional<MessageBoxTexts> withoutErrorStream(const char* title, const std::function<void()>& function);

} // namespace Nolvex::Tests
