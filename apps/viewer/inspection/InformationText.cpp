// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/InformationText.h"

#include "NolvexLibWx/StringConversions.h"

#include <wx/string.h>

#include <array>
#include <charconv>
#include <cmath>

namespace Nolvex::Viewer {

namespace {

constexpr int DIGITS = 6;
constexpr std::size_t MAX_NUMBER = 32; // characters

String countText(std::int64_t count)
{
    return Wx::toString(wxString() << static_cast<wxLongLong_t>(count));
}

String placeText(Pixel place)
{
    return Wx::toString(wxString::Format(L"%d, %d", place.x, place.y));
}

String sizeText(int width, int height)
{
    return Wx::toString(wxString::Format(L"%d \u00D7 %d", width, height));
}

const wchar_t* formatText(PixelFormat format)
{
    switch (format) {
    case PixelFormat::UINT8_GREY:
    case PixelFormat::UINT8_RGB:
    case PixelFormat::UINT8_RGBA:
        return L"8-bit integers";
    case PixelFormat::UINT16_GREY:
    case PixelFormat::UINT16_RGB:
    case PixelFormat::UINT16_RGBA:
        return L"16-bit integers";
    case PixelFormat::FLOAT16_GREY:
    case PixelFormat::FLOAT16_RGB:
    case PixelFormat::FLOAT16_RGBA:
        return L"16-bit floats";
    default:
        return L"32-bit floats";
    }
}

} // namespace

String numberText(double number)
{
    if (std::isnan(number))
        return L"nan"; // without the sign that some NaN have
    std::array<char, MAX_NUMBER> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, DIGITS);
    return String::fromAscii({text.data(), static_cast<std::size_t>(end.ptr - text.data())});
}

String statisticsText(const Picture& picture, const PictureStatistics& statistics,
                      const Optional<wxRect>& selection)
{
    String text = selection ? L"Selection " + sizeText(selection->width, selection->height) + L" at " +
                                  placeText({selection->x, selection->y})
                            : String(L"Whole picture");
    text += L"\n";
    for (std::size_t i = 0; i < statistics.channels.size(); ++i) {
        const ChannelStatistics& channel = statistics.channels[i];
        const String name = i < picture.channels().size() ? picture.channels()[i] : String(L"?");
        text += name + L": " + numberText(channel.min) + L" to " + numberText(channel.max) + L"\n    mean " +
                numberText(channel.mean) + L"\n";
        if (channel.infiniteCount > 0)
            text += L"    infinite: " + countText(channel.infiniteCount) + L"\n";
    }
    text += L"NaN pixels: " + countText(statistics.nanPixelCount) + L"\n";
    return text;
}

String metadataText(const Picture& picture)
{
    String text = L"Size: " + picture.sizeText() + L"\n";
    text += String(L"Values: ") + formatText(picture.image().descriptor().format) + L", gamma " +
            numberText(double(picture.image().descriptor().gamma)) + L"\n";
    if (picture.hasAlpha())
        text += picture.alpha() == AlphaKind::ASSOCIATED ? L"Alpha: associated (in the colours)\n"
                                                         : L"Alpha: straight\n";
    if (picture.origin() != Pixel{0, 0} || picture.frameSize() != picture.size())
        text += L"Frame: " + sizeText(picture.frameSize().x, picture.frameSize().y) + L", picture at " +
                placeText(picture.origin()) + L"\n";
    if (picture.layers().size() > 1)
        text += L"Layer: " + picture.layers()[picture.layer()].label() + L"\n";
    for (const MetadataEntry& entry : picture.metadata())
        text += entry.name + L": " + entry.value + L"\n";
    for (const String& omission : picture.omissions())
        text += omission + L"\n";
    return text;
}

String differenceText(const PictureDifference& difference)
{
    String text =
        L"Mean: " + numberText(difference.mean) + L"\nPSNR: " + numberText(difference.psnr) + L" dB\n";
    if (difference.notFiniteCount > 0)
        text += L"Left out (infinite or NaN): " + countText(difference.notFiniteCount) + L" pixels\n";
    return text;
}

} // namespace Nolvex::Viewer
