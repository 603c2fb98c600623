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

/// An encoded image whose structure has been checked: the decoder of wxWidgets reads no byte outside of the
/// image, writes no byte outside of its own memory, and finds every pixel that the header claims.
class SoundImage
{
public:
    /// Refers to the bytes of the file, which must outlive this object.
    explicit SoundImage(ArrayView<const std::byte> bytes) : m_bytes(bytes) {}

    /// Takes the same image, rewritten in a form that wxWidgets decodes correctly.
    explicit SoundImage(Array<std::byte> rewritten) : m_rewritten(std::move(rewritten)) {}

    ArrayView<const std::byte> bytes() const
    {
        return m_rewritten.empty() ? m_bytes : ArrayView<const std::byte>(m_rewritten);
    }

    /// The turn that brings the decoded image upright: 1 to 8, like the orientation of a TIFF file.
    int orientation = 1;

    /// False for a JPEG file without an end marker. The decoder fills the missing part with grey.
    bool isWhole = true;

private:
    ArrayView<const std::byte> m_bytes;
    Array<std::byte> m_rewritten;
};

/// The error is the rest of a sentence, "it ...".
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

/// Returns true if a wxImage can have this size. A wxImage counts its bytes of colour in int.
bool fitsWxImage(std::uint64_t width, std::uint64_t height);

/// Returns true if a compressed file of this many bytes can hold an image of this many pixels. Every image up
/// to 64 Mi pixels passes. A larger image needs at least the bytes that the tightest common compression
/// takes, so that a file of a few bytes cannot claim gigabytes.
bool isPlausible(std::uint64_t pixels, std::size_t fileSize);

CheckedImage checkBmp(ArrayView<const std::byte> file);
CheckedImage checkGif(ArrayView<const std::byte> file);
CheckedImage checkIco(ArrayView<const std::byte> file);
CheckedImage checkJpeg(ArrayView<const std::byte> file);
CheckedImage checkPng(ArrayView<const std::byte> file);
CheckedImage checkTga(ArrayView<const std::byte> file);
CheckedImage checkTiff(ArrayView<const std::byte> file);

} // namespace Nolvex::Decoding
