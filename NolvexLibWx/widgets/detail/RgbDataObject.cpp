// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/RgbDataObject.h"

#include <bit>
#include <cstdint>
#include <limits>

namespace Nolvex {

namespace {

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == sizeof(std::uint32_t));

constexpr const char* FORMAT_NAME = "Quillane-Rgb";
constexpr float Rgb::*CHANNELS[] = {&Rgb::r, &Rgb::g, &Rgb::b, &Rgb::a};

void writeFloat(float value, unsigned char* bytes)
{
    const auto bits = std::bit_cast<std::uint32_t>(value);
    for (unsigned i = 0; i < sizeof(bits); ++i)
        bytes[i] = static_cast<unsigned char>(bits >> 8 * i);
}

float readFloat(const unsigned char* bytes)
{
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < sizeof(bits); ++i)
        bits |= std::uint32_t{bytes[i]} << 8 * i;
    return std::bit_cast<float>(bits);
}

} // namespace

Wx::RgbDataObject::RgbDataObject() : wxDataObjectSimple(wxDataFormat(FORMAT_NAME)) {}

Wx::RgbDataObject::RgbDataObject(const Rgb& color) : RgbDataObject()
{
    m_color = color;
}

bool Wx::RgbDataObject::GetDataHere(void* buffer) const
{
    if (!m_color)
        return false;
    auto* bytes = static_cast<unsigned char*>(buffer);
    for (float Rgb::*const channel : CHANNELS) {
        writeFloat((*m_color).*channel, bytes);
        bytes += sizeof(float);
    }
    return true;
}

bool Wx::RgbDataObject::SetData(size_t length, const void* buffer)
{
    m_color.reset();
    if (length < SIZE)
        return false;
    Rgb color;
    const auto* bytes = static_cast<const unsigned char*>(buffer);
    for (float Rgb::*const channel : CHANNELS) {
        color.*channel = readFloat(bytes);
        bytes += sizeof(float);
    }
    m_color = color;
    return true;
}

} // namespace Nolvex
