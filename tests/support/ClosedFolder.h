// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Noncopyable.h"

namespace Nolvex::Tests {

/// Makes a folder that this process cannot read as long as the object lives. A superuser, whom no rights
/// stop, acts as another user meanwhile.
class ClosedFolder : private Noncopyable
{
public:
    explicit ClosedFolder(Io::Path path);
    ~ClosedFolder();

    /// False if the system lets the process read the folder all the same.
    bool isClosed() const { return m_closed; }

private:
    Io::Path m_path;
    bool m_wasSuperuser = false;
    bool m_closed = false;
};

} // namespace Nolvex::Tests
