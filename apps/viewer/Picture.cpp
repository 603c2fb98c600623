// SPDX-License-Identifier: MIT
#include "apps/viewer/Picture.h"

#include "NolvexLibWx/BitmapConverter.h"
#include "NolvexLibWx/StringConversions.h"

#include <utility>

namespace Nolvex::Viewer {

Picture::Picture(String name, Image image, Array<String> omissions)
    : m_name(std::move(name)),
      m_image(std::make_shared<const Image>(std::move(image))),
      m_omissions(std::move(omissions))
{}

std::shared_ptr<const Picture> Picture::named(String name) const
{
    auto renamed = std::make_shared<Picture>(*this);
    renamed->m_name = std::move(name);
    return renamed;
}

String Picture::sizeText() const
{
    return Wx::toString(wxString::Format(L"%d \u00D7 %d", size().x, size().y));
}

const wxBitmap& Picture::bitmap() const
{
    if (!m_bitmap.IsOk())
        m_bitmap = BitmapConverter::zephraImageToWxBitmap(*m_image);
    return m_bitmap;
}

} // namespace Nolvex::Viewer
