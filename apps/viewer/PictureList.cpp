// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureList.h"

namespace Nolvex::Viewer {

Optional<Io::Path> PictureList::current() const
{
    return m_files.empty() ? Optional<Io::Path>() : m_files[m_position];
}

void PictureList::replaceCurrent(const Io::Path& file)
{
    if (m_files.empty())
        m_files.push_back(file);
    else
        m_files[m_position] = file;
}

void PictureList::move(int steps)
{
    if (m_files.empty())
        return;
    const auto files = static_cast<std::ptrdiff_t>(m_files.size());
    const std::ptrdiff_t place = (static_cast<std::ptrdiff_t>(m_position) + steps) % files;
    m_position = static_cast<std::size_t>(place < 0 ? place + files : place);
}

} // namespace Nolvex::Viewer
