// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Nolvex::Decoding {

/// An encoded image whose structure has been checked: wxWidgets' decoder of its format reads no byte outside
/// of it, writes none outside of its own memory, and finds every pixel that the header claims.
class SoundImage
{
public:
    /// The bytes as they are, which must outlive this object.
    explicit SoundImage(ArrayView<const std::byte> bytes) : m_bytes(bytes) {}

    /// The same image, written anew in a form that wxWidgets reads rightly.
    explicit SoundImage(Array<std::byte> rewritten) : m_rewritten(std::move(rewritten)) {}

    ArrayView<const std::byte> bytes() const
    {
        return m_rewritten.empty() ? m_bytes : ArrayView<const std::byte>(m_rewritten);
    }

    /// How the decoded image has to be turned to stand upright: 1 to 8, as the orientation of a TIFF file.
    int orientation = 1;

    /// False of a JPEG file that ends before its end marker. Its decoder fills the missing part with grey.
    bool isWhole = true;

private:
    ArrayView<const std::byte> m_bytes;
    Array<std::byte> m_rewritten;
};

/// The error is a part of a sentence: "it ...".
using CheckedImage = Expected<SoundImage, String>;

inline Unexpected<String> refuseDamaged()
{
    return {L"it is not a picture of a known format, or it is damaged"};
}

inline Unexpected<String> refuseShort()
{
    return {L"it ends before its last pixel"};
}

inline Unexpected<String> refuseLarge()
{
    return {L"it is too large"};
}

/// Whether a wxImage can have this size: its colours are counted in int.
bool fitsWxImage(std::uint64_t width, std::uint64_t height);

/// Whether a compressed file of this many bytes can hold an image of this many pixels. Every image up to
/// 64 Mi pixels passes. A larger one needs the bytes that the tightest usual compression takes, so that a
/// file of a few bytes cannot ask for gigabytes.
bool isPlausible(std::uint64_t pixels, std::size_t fileSize);

CheckedImage checkBmp(ArrayView<const std::byte> file);
CheckedImage checkGif(ArrayView<const std::byte> file);
CheckedImage checkIco(ArrayView<const std::byte> file);
CheckedImage checkJpeg(ArrayView<const std::byte> file);
CheckedImage checkPng(ArrayView<const std::byte> file);
CheckedImage checkTga(ArrayView<const std::byte> file);
CheckedImage checkTiff(ArrayView<const std::byte> file);

} // namespace Nolvex::Decoding
