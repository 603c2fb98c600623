// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrReader.h"

#include "apps/viewer/reading/OpenExrFile.h"
#include "apps/viewer/reading/OpenExrLayers.h"
#include "apps/viewer/reading/OpenExrMetadata.h"
#include "apps/viewer/reading/OpenExrPixels.h"

#include <ImfHeader.h>

#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// The messages of OpenEXR are sentences, which end here.
String damageReason(const std::exception& failure)
{
    std::string_view reason(failure.what());
    while (reason.ends_with('.'))
        reason.remove_suffix(1);
    return L"it is damaged or cut off (" + String::fromUtf8(reason) + L")";
}

// Exceptions of OpenEXR end here. std::bad_alloc is for the caller.
template<class Result, class Work>
Expected<Result, String> withoutExceptions(const Work& work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        return Unexpected{damageReason(failure)};
    }
}

Array<String> omissionsOf(const OpenExrFile& file, const Imf::Header& shown)
{
    Array<String> omissions;
    int deepParts = 0;
    for (int part = 0; part < file.partCount(); ++part)
        deepParts += isDeep(file.header(part)) ? 1 : 0;
    if (deepParts == 1)
        omissions.push_back(L"It has a part with deep pixels, which is not shown.");
    else if (deepParts > 1)
        omissions.push_back(L"It has " + std::to_wstring(deepParts) +
                            L" parts with deep pixels, which are not shown.");
    if (shown.hasTileDescription() && shown.tileDescription().mode != Imf::ONE_LEVEL)
        omissions.push_back(L"It has smaller versions of the picture, which are not shown.");
    return omissions;
}

ReadImage withSurroundings(Image image, const OpenExrFile& file, const Imf::Header& header)
{
    const Imath::Box2i& data = header.dataWindow();
    const Imath::Box2i& display = header.displayWindow();
    ReadImage read{.image = std::move(image),
                   .omissions = omissionsOf(file, header),
                   .metadata = openExrMetadata(header),
                   .origin = {data.min.x - display.min.x, data.min.y - display.min.y},
                   .alpha = AlphaKind::ASSOCIATED, // as OpenEXR defines the colours beside an alpha
                   .formatMetadata = std::make_shared<const OpenExrHeader>(header)};
    if (data != display)
        read.frameSize = Pixel{display.max.x - display.min.x + 1, display.max.y - display.min.y + 1};
    return read;
}

Expected<ReadImage, String> readLayer(ArrayView<const std::byte> bytes, std::size_t index,
                                      const ReadingProgress& progress)
{
    OpenExrFile file(bytes);
    const Array<OpenExrLayer> layers = openExrLayers(file);
    if (index >= layers.size())
        return Unexpected{String(L"it has no such layer")};
    const OpenExrLayer& layer = layers[index];
    if (!file.parts().partComplete(layer.part))
        return Unexpected{String(L"it is damaged or cut off (some of its pixels are missing)")};
    Expected<Image, String> image = readOpenExrPixels(file, layer, progress);
    if (!image)
        return Unexpected{image.error()};
    return withSurroundings(std::move(*image), file, file.header(layer.part));
}

} // namespace

Array<String> OpenExrReader::extensions() const
{
    return {L"exr"};
}

bool OpenExrReader::knows(ArrayView<const std::byte> file) const
{
    return OpenExrFile::knows(file);
}

Expected<Array<PictureLayer>, String> OpenExrReader::layers(ArrayView<const std::byte> file) const
{
    using Layers = Array<PictureLayer>;
    return withoutExceptions<Layers>([file]() -> Expected<Layers, String> {
        const OpenExrFile exr(file);
        Layers described;
        for (const OpenExrLayer& layer : openExrLayers(exr))
            described.push_back(layer.described());
        if (described.empty())
            return Unexpected{String(L"it holds deep pixels only, which are not shown")};
        return described;
    });
}

Expected<ReadImage, String> OpenExrReader::read(ArrayView<const std::byte> file, std::size_t layer,
                                                const ReadingProgress& progress) const
{
    return withoutExceptions<ReadImage>([&] { return readLayer(file, layer, progress); });
}

} // namespace Nolvex::Viewer
