// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/openimageio/TemporaryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace Nolvex::Viewer {

namespace {

bool writeAll(int descriptor, ArrayView<const std::byte> content)
{
    while (!content.empty()) {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written <= 0)
            return false;
        content = content.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

TemporaryFile::TemporaryFile(ArrayView<const std::byte> content)
    : m_descriptor(memfd_create("picture", MFD_CLOEXEC))
{
    if (m_descriptor >= 0 && !writeAll(m_descriptor, content)) {
        close(m_descriptor);
        m_descriptor = -1;
    }
}

TemporaryFile::~TemporaryFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

std::string TemporaryFile::name() const
{
    return "/proc/self/fd/" + std::to_string(m_descriptor);
}

} // namespace Nolvex::Viewer
