// SPDX-License-Identifier: MIT
#include "apps/viewer/Picture.h"

#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/StringConversions.h"

#include <utility>

namespace Nolvex::Viewer {

Picture::Picture(String name, Image image) : m_name(std::move(name)), m_image(std::move(image)) {}

String Picture::sizeText() const
{
    return Wx::toString(wxString::Format(L"%d \u00D7 %d", size().x, size().y));
}

const wxBitmap& Picture::bitmap() const
{
    if (!m_bitmap.IsOk())
        m_bitmap = BitmapConverter::zephraImageToWxBitmap(m_image);
    return m_bitmap;
}

} // namespace Nolvex::Viewer
