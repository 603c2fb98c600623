// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageFile.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileSize.h"
#include "NolvexLibWx/BitmapConverter.h"
#include "apps/viewer/PortableFloatMap.h"
#include "apps/viewer/WholeImage.h"

#include <wx/image.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <new>
#include <system_error>

namespace Nolvex::Viewer {

namespace {

// What the toolkit's decoders count in int.
constexpr std::uint64_t MAX_FILE_SIZE = std::numeric_limits<std::int32_t>::max();

Unexpected<String> refuse(const Io::Path& path, const String& reason)
{
    String message = L"The picture \"" + path.nativeStr() + L"\" cannot be shown: " + reason;
    if (!reason.isEmpty() && reason[reason.length() - 1] != L'.')
        message += L".";
    return {message};
}

Expected<Array<std::byte>, String> readWholeFile(const Io::Path& path)
{
    try {
        // Asked before it is opened: opening a pipe would wait for somebody to write into it.
        std::error_code ignored;
        const std::filesystem::file_status status = std::filesystem::status(path.native(), ignored);
        if (exists(status) && !is_regular_file(status))
            return refuse(path, L"it is not a regular file");
        Io::FileInputStream stream(path);
        const std::uint64_t size = Io::fileSize(path).value_or(0);
        if (size > MAX_FILE_SIZE)
            return refuse(path, L"it is larger than 2 GiB");
        Array<std::byte> content(static_cast<std::size_t>(size));
        if (!stream.readExactly(content.data(), static_cast<std::int64_t>(content.size())))
            return refuse(path, L"it became shorter while it was read");
        return content;
    } catch (const Exception& failure) {
        return Unexpected{String::fromUtf8(failure.what())};
    } catch (const std::bad_alloc&) {
        return refuse(path, L"there is not enough memory for it");
    }
}

Expected<Image, String> toImage(const wxImage& source)
{
    const bool alpha = source.HasAlpha();
    Expected<Image, String> image =
        Image::create(source.GetWidth(), source.GetHeight(),
                      alpha ? PixelFormat::UINT8_RGBA : PixelFormat::UINT8_RGB, 1.0f);
    const unsigned char* colour = source.GetData();
    const unsigned char* opacity = source.GetAlpha();
    for (std::int32_t y = source.GetHeight() - 1; image && y >= 0; --y) {
        auto to = image->row(y).begin();
        for (int x = 0; x < source.GetWidth(); ++x) {
            for (int channel = 0; channel < 3; ++channel)
                *to++ = static_cast<std::byte>(*colour++);
            if (alpha)
                *to++ = static_cast<std::byte>(*opacity++);
        }
    }
    return image;
}

Expected<Image, String> decode(ArrayView<const std::byte> content)
{
    if (isPortableFloatMap(content))
        return readPortableFloatMap(content);
    Expected<wxImage, String> decoded = decodeWholeImage(content);
    if (!decoded)
        return Unexpected{decoded.error()};
    if (decoded->HasMask() && !decoded->HasAlpha())
        decoded->InitAlpha();
    return toImage(*decoded);
}

} // namespace

Expected<Image, String> readImageFile(const Io::Path& path)
{
    const Expected<Array<std::byte>, String> content = readWholeFile(path);
    if (!content)
        return Unexpected{content.error()};
    Expected<Image, String> image = decode(*content);
    if (!image)
        return refuse(path, image.error());
    return image;
}

Expected<wxBitmap, String> readBitmapFile(const Io::Path& path)
{
    const Expected<Image, String> image = readImageFile(path);
    if (!image)
        return Unexpected{image.error()};
    wxBitmap bitmap = BitmapConverter::zephraImageToWxBitmap(*image);
    if (!bitmap.IsOk())
        return refuse(path, L"it is too large");
    return bitmap;
}

} // namespace Nolvex::Viewer
