// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/WireCommand.h"

#include "NolvexLib/SimpleTextDeserializer.h"
#include "NolvexLibImage/Image.h"
#include "apps/viewer/reading/PictureReader.h"
#include "apps/viewer/wire/WireLimits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr std::int32_t VERSION = 1;

constexpr wchar_t VERSION_KEY[] = L"Version";
constexpr wchar_t COMMAND_KEY[] = L"Command";
constexpr wchar_t NAME_KEY[] = L"Name";
constexpr wchar_t X_KEY[] = L"X";
constexpr wchar_t Y_KEY[] = L"Y";
constexpr wchar_t WIDTH_KEY[] = L"Width";
constexpr wchar_t HEIGHT_KEY[] = L"Height";
constexpr wchar_t FORMAT_KEY[] = L"Format";
constexpr wchar_t GAMMA_KEY[] = L"Gamma";
constexpr wchar_t ALPHA_KEY[] = L"Alpha";
constexpr wchar_t PROGRESS_KEY[] = L"Progress";
constexpr wchar_t RESULT_KEY[] = L"Result";
constexpr wchar_t TEXT_KEY[] = L"Text";

// In the order of WireAction.
constexpr std::array<const wchar_t*, 5> ACTIONS = {L"open", L"create", L"update", L"progress", L"close"};

// In the order of PixelFormat.
constexpr std::array<const wchar_t*, PIXEL_FORMAT_COUNT> FORMATS = {
    L"UINT8_GREY",   L"UINT8_RGB",   L"UINT8_RGBA",   L"UINT16_GREY",  L"UINT16_RGB",  L"UINT16_RGBA",
    L"FLOAT16_GREY", L"FLOAT16_RGB", L"FLOAT16_RGBA", L"FLOAT32_GREY", L"FLOAT32_RGB", L"FLOAT32_RGBA",
};

// In the order of AlphaKind.
constexpr std::array<const wchar_t*, 2> ALPHA_KINDS = {L"straight", L"associated"};

// The reason why a header is refused. Thrown and caught in this unit only, so that the many children can be
// read without a check behind each of them.
struct Refusal
{
    String reason;
};

String textOf(const XmlString& header, const wchar_t* key)
{
    const Optional<String> text = header.getChild(key);
    if (!text)
        throw Refusal{String(key) + L" is missing."};
    return *text;
}

std::int32_t integerOf(const XmlString& header, const wchar_t* key)
{
    const auto number = SimpleTextDeserializer::parse<std::int32_t>(textOf(header, key));
    if (!number)
        throw Refusal{String(key) + L" is no whole number of 32 bits."};
    return *number;
}

std::int32_t sideOf(const XmlString& header, const wchar_t* key)
{
    const std::int32_t side = integerOf(header, key);
    if (side < 1 || side > WireLimits::MAX_SIDE)
        throw Refusal{String(key) + L" must be from 1 to " + std::to_wstring(WireLimits::MAX_SIDE) + L"."};
    return side;
}

// Reads digits, and at most one point between them. Neither signs nor exponents are taken, so that the number
// is neither below zero nor NaN; a number that a float cannot hold is refused, too.
Optional<float> parseDecimal(const String& text)
{
    const std::string bytes = text.toUtf8();
    if (bytes.find_first_not_of("0123456789.") != std::string::npos || bytes.starts_with('.') ||
        bytes.ends_with('.'))
        return {};
    float number = 0.0f;
    const char* const end = bytes.data() + bytes.size();
    const auto [stop, failure] = std::from_chars(bytes.data(), end, number, std::chars_format::fixed);
    return failure == std::errc() && stop == end ? Optional<float>(number) : Optional<float>();
}

String decimalText(float number)
{
    std::array<char, 64> text;
    const auto [end, failure] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return failure == std::errc() ? String::fromAscii({text.data(), end}) : String(L"0");
}

float gammaOf(const XmlString& header, PixelFormat format)
{
    const Optional<String> text = header.getChild(GAMMA_KEY);
    if (!text)
        return usualGamma(format);
    const Optional<float> gamma = parseDecimal(*text);
    if (!gamma || *gamma <= 0.0f || *gamma > WireLimits::MAX_GAMMA)
        throw Refusal{L"Gamma must be a number above 0 and up to 10."};
    return *gamma;
}

Optional<float> progressOf(const XmlString& header)
{
    const Optional<String> text = header.getChild(PROGRESS_KEY);
    if (!text)
        return {};
    const Optional<float> progress = parseDecimal(*text);
    if (!progress || *progress > 1.0f)
        throw Refusal{L"Progress must be a number from 0 to 1."};
    return progress;
}

String nameOf(const XmlString& header)
{
    String name = textOf(header, NAME_KEY);
    const std::wstring& text = name.wstr();
    const bool hasControls =
        std::any_of(text.begin(), text.end(), [](wchar_t unit) { return unit < L' ' || unit == 0x7f; });
    if (name.isEmpty() || hasControls || name.toUtf8().size() > WireLimits::MAX_NAME_BYTES)
        throw Refusal{L"Name must have 1 to 1024 bytes and no control characters."};
    return name;
}

template<class Names>
Optional<std::size_t> indexOf(const Names& names, const String& name)
{
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const wchar_t* known) { return name == known; });
    return found == names.end() ? Optional<std::size_t>() : static_cast<std::size_t>(found - names.begin());
}

WireAction actionOf(const XmlString& header)
{
    const String name = textOf(header, COMMAND_KEY);
    const Optional<std::size_t> index = indexOf(ACTIONS, name);
    if (!index)
        throw Refusal{L"The command \"" + name.getSubstr(0, 100) + L"\" is unknown."};
    return static_cast<WireAction>(*index);
}

PixelFormat formatOf(const XmlString& header)
{
    const String name = textOf(header, FORMAT_KEY);
    const Optional<std::size_t> index = indexOf(FORMATS, name);
    if (!index)
        throw Refusal{L"The format \"" + name.getSubstr(0, 100) + L"\" is unknown."};
    return static_cast<PixelFormat>(*index);
}

AlphaKind alphaOf(const XmlString& header)
{
    const Optional<String> name = header.getChild(ALPHA_KEY);
    if (!name)
        return AlphaKind::STRAIGHT;
    const Optional<std::size_t> index = indexOf(ALPHA_KINDS, *name);
    if (!index)
        throw Refusal{L"Alpha must be straight or associated."};
    return static_cast<AlphaKind>(*index);
}

void checkVersion(const XmlString& header)
{
    if (integerOf(header, VERSION_KEY) != VERSION)
        throw Refusal{L"This viewer speaks version 1 of the protocol."};
}

// The corner may lie anywhere. Only the owner of the picture knows whether the rectangle is inside.
Bucket areaOf(const XmlString& header)
{
    const std::int32_t x = integerOf(header, X_KEY);
    const std::int32_t y = integerOf(header, Y_KEY);
    const Pixel size{sideOf(header, WIDTH_KEY), sideOf(header, HEIGHT_KEY)};
    // A sum beyond this cannot be inside of any picture, and may not fit into 32 bits.
    if (x < 0 || y < 0 || x > WireLimits::MAX_SIDE || y > WireLimits::MAX_SIDE)
        throw Refusal{L"The rectangle is not inside of the picture."};
    return {{x, y}, {x + size.x, y + size.y}};
}

WireCommand read(const XmlString& header)
{
    checkVersion(header);
    WireCommand command;
    command.action = actionOf(header);
    command.name = nameOf(header);
    command.progress = progressOf(header);
    if (command.action == WireAction::UPDATE)
        command.area = areaOf(header);
    if (command.action == WireAction::OPEN || command.action == WireAction::CREATE) {
        command.area.max = {sideOf(header, WIDTH_KEY), sideOf(header, HEIGHT_KEY)};
        command.format = formatOf(header);
        command.gamma = gammaOf(header, command.format);
        command.alpha = alphaOf(header);
    }
    if (command.action == WireAction::PROGRESS && !command.progress)
        throw Refusal{L"Progress is missing."};
    return command;
}

void add(XmlString& header, const wchar_t* key, std::int32_t number)
{
    header.addChild(key, String(std::to_wstring(number)));
}

void addSize(XmlString& header, const Bucket& area)
{
    add(header, WIDTH_KEY, area.width());
    add(header, HEIGHT_KEY, area.height());
}

} // namespace

bool hasPixels(WireAction action)
{
    return action == WireAction::OPEN || action == WireAction::UPDATE;
}

Expected<WireCommand, String> parseWireCommand(const XmlString& header)
try {
    return read(header);

} catch (const Refusal& refusal) {
    return Unexpected{refusal.reason};
}

XmlString composeWireCommand(const WireCommand& command)
{
    XmlString header;
    add(header, VERSION_KEY, VERSION);
    header.addChild(COMMAND_KEY, String(ACTIONS[static_cast<std::size_t>(command.action)]));
    header.addChild(NAME_KEY, command.name);
    if (command.action == WireAction::UPDATE) {
        add(header, X_KEY, command.area.min.x);
        add(header, Y_KEY, command.area.min.y);
        addSize(header, command.area);
    }
    if (command.action == WireAction::OPEN || command.action == WireAction::CREATE) {
        addSize(header, command.area);
        header.addChild(FORMAT_KEY, String(FORMATS[static_cast<std::size_t>(command.format)]));
        header.addChild(GAMMA_KEY, decimalText(command.gamma));
        if (command.alpha != AlphaKind::STRAIGHT)
            header.addChild(ALPHA_KEY, String(ALPHA_KINDS[static_cast<std::size_t>(command.alpha)]));
    }
    if (command.progress)
        header.addChild(PROGRESS_KEY, decimalText(*command.progress));
    return header;
}

XmlString composeWireAnswer(const Optional<String>& failure)
{
    XmlString answer;
    add(answer, VERSION_KEY, VERSION);
    answer.addChild(RESULT_KEY, String(failure ? L"error" : L"ok"));
    if (failure)
        answer.addChild(TEXT_KEY, *failure);
    return answer;
}

Optional<String> parseWireAnswer(const XmlString& answer)
{
    const String result = answer.getChild(RESULT_KEY).value_or(String());
    if (result == L"ok")
        return {};
    if (result == L"error")
        return answer.getChild(TEXT_KEY).value_or(L"The viewer refused, and did not say why.");
    return String(L"The answer is not that of a viewer.");
}

std::int64_t pixelBytes(const Bucket& area, PixelFormat format)
{
    return std::int64_t{area.width()} * area.height() *
           static_cast<std::int64_t>(Image::getPixelFormatByteCount(format));
}

float usualGamma(PixelFormat format)
{
    return format < PixelFormat::FLOAT16_GREY ? GAMMA_OF_ENCODED : GAMMA_OF_LIGHT;
}

} // namespace Nolvex::Viewer
