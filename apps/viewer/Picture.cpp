// SPDX-License-Identifier: MIT
#include "apps/viewer/Picture.h"

#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/LayeredFile.h"

#include <utility>

namespace Nolvex::Viewer {

namespace {

Array<String> usualChannels(PixelFormat format)
{
    switch (Image::getPixelFormatChannelCount(format)) {
    case 1:
        return {L"Y"};
    case 3:
        return {L"R", L"G", L"B"};
    default:
        return {L"R", L"G", L"B", L"A"};
    }
}

} // namespace

Picture::Picture(String name, Image image, AlphaKind alpha)
    : Picture(std::move(name), ReadImage{.image = std::move(image), .alpha = alpha}, nullptr, 0)
{}

Picture::Picture(String name, ReadImage read, const std::shared_ptr<const LayeredFile>& file,
                 std::size_t layer)
    : m_name(std::move(name)),
      m_content(std::make_shared<const ReadImage>(std::move(read))),
      m_layers(file ? file->layers() : Array<PictureLayer>(1)),
      m_layer(layer)
{
    if (m_layers.size() > 1)
        m_file = file;
    if (m_layers[m_layer].channels.empty())
        m_layers[m_layer].channels = usualChannels(image().descriptor().format);
}

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

} // namespace Nolvex::Viewer
