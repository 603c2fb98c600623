// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Pixel.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <wx/bitmap.h>

#include <memory>

namespace Nolvex::Viewer {

/// The viewer's document: the image in the format and gamma of its source, and its name. The window, the
/// clipboard and every tool share the same object, which never changes after its construction.
class Picture
{
public:
    /// The omissions are sentences about what the file holds besides the image.
    Picture(String name, Image image, Array<String> omissions = {});

    const String& name() const { return m_name; }

    const Image& image() const { return *m_image; }

    Pixel size() const { return {image().descriptor().width, image().descriptor().height}; }

    const Array<String>& omissions() const { return m_omissions; }

    /// Returns the same picture with another name. Both share the image.
    std::shared_ptr<const Picture> named(String name) const;

    /// Returns the size as text, such as "640 x 480", with a multiplication sign.
    String sizeText() const;

    /// Returns the bitmap that shows the picture, which is made by the first call. The bitmap is invalid if
    /// the picture is too large for a bitmap or memory has run out.
    const wxBitmap& bitmap() const;

private:
    String m_name;
    std::shared_ptr<const Image> m_image;
    Array<String> m_omissions;
    mutable wxBitmap m_bitmap;
};

/// Null stands for no picture.
using SharedPicture = std::shared_ptr<const Picture>;

} // namespace Nolvex::Viewer
