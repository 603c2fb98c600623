// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Pixel.h"
#include "NolvexLib/String.h"
#include "NolvexLibImage/Image.h"

#include <wx/bitmap.h>

#include <memory>

namespace Nolvex::Viewer {

/// The viewer's document: an image as it came, in its own format and gamma, and its name. The window, the
/// clipboard and every tool share one; nothing about it changes after it was made.
class Picture
{
public:
    Picture(String name, Image image);

    const String& name() const { return m_name; }

    const Image& image() const { return m_image; }

    Pixel size() const { return {m_image.descriptor().width, m_image.descriptor().height}; }

    /// The size in words, "640 x 480" with a multiplication sign.
    String sizeText() const;

    /// The picture as it is shown, made when it is first asked for. Invalid if the picture is too large for a
    /// bitmap or there is no memory.
    const wxBitmap& bitmap() const;

private:
    String m_name;
    Image m_image;
    mutable wxBitmap m_bitmap;
};

/// Null stands for no picture.
using SharedPicture = std::shared_ptr<const Picture>;

} // namespace Nolvex::Viewer
