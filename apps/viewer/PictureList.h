// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Optional.h"

#include <cstddef>

namespace Nolvex::Viewer {

/// The files that the user opened together, and the one that is shown.
class PictureList
{
public:
    PictureList() = default;

    explicit PictureList(Array<Io::Path> files) : m_files(std::move(files)) {}

    std::size_t count() const { return m_files.size(); }

    /// The place of the shown file among the files, from 0.
    std::size_t position() const { return m_position; }

    /// Returns the shown file, or nullopt if the list is empty.
    Optional<Io::Path> current() const;

    /// Puts another file in the place of the shown one. An empty list gets this file alone.
    void replaceCurrent(const Io::Path& file);

    /// Goes `steps` files on, or back if the number is negative. After the last file comes the first one.
    void move(int steps);

private:
    Array<Io::Path> m_files;
    std::size_t m_position = 0;
};

} // namespace Nolvex::Viewer
