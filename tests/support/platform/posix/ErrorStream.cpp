// SPDX-License-Identifier: MIT
#include "support/ErrorStream.h"

#include <fcntl.h>
#include <unistd.h>

namespace Nolvex::Tests {

Optional<MessageBoxTexts> withoutErrorStream(const char* /*title*/, const std::function<void()>& function)
{
    const int kept = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    close(STDERR_FILENO);
    function();
    dup2(kept, STDERR_FILENO);
    close(kept);
    return {};
}

} // namespace Nolvex::Tests
