// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <cstddef>
#include <string>

namespace Nolvex::Viewer {

/// A file in memory that has a name, for libraries that read files with names only. The file is gone with the
/// object.
class TemporaryFile
{
public:
    explicit TemporaryFile(ArrayView<const std::byte> content);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool isOk() const { return m_descriptor >= 0; }

    std::string name() const;

private:
    int m_descriptor;
};

} // namespace Nolvex::Viewer
