// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrMetadata.h"

#include "apps/viewer/reading/NumberText.h"

#include <ImfBoxAttribute.h>
#include <ImfChannelListAttribute.h>
#include <ImfChromaticitiesAttribute.h>
#include <ImfCompressionAttribute.h>
#include <ImfDoubleAttribute.h>
#include <ImfEnvmapAttribute.h>
#include <ImfFloatAttribute.h>
#include <ImfFloatVectorAttribute.h>
#include <ImfIntAttribute.h>
#include <ImfKeyCodeAttribute.h>
#include <ImfLineOrderAttribute.h>
#include <ImfMatrixAttribute.h>
#include <ImfPreviewImageAttribute.h>
#include <ImfRationalAttribute.h>
#include <ImfStringAttribute.h>
#include <ImfStringVectorAttribute.h>
#include <ImfTileDescriptionAttribute.h>
#include <ImfTimeCodeAttribute.h>
#include <ImfVecAttribute.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace Nolvex::Viewer {

namespace {

std::string joined(std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

std::string textOf(const std::string& value)
{
    return value;
}

std::string textOf(int value)
{
    return numberText(value);
}

std::string textOf(float value)
{
    return numberText(value);
}

std::string textOf(double value)
{
    return numberText(value);
}

template<class Number>
std::string textOf(const Imath::Vec2<Number>& value)
{
    return joined({"(", numberText(value.x), ", ", numberText(value.y), ")"});
}

template<class Number>
std::string textOf(const Imath::Vec3<Number>& value)
{
    return joined({"(", numberText(value.x), ", ", numberText(value.y), ", ", numberText(value.z), ")"});
}

template<class Point>
std::string textOf(const Imath::Box<Point>& value)
{
    return joined({textOf(value.min), " to ", textOf(value.max)});
}

// Joins the texts of all items.
template<class Items>
std::string listText(const Items& items)
{
    std::string text;
    for (const auto& item : items)
        text += joined({text.empty() ? "" : ", ", textOf(item)});
    return text;
}

template<class Matrix, int SIZE>
std::string matrixText(const Matrix& matrix)
{
    std::string text;
    for (int row = 0; row < SIZE; ++row) {
        text += row == 0 ? "" : "; ";
        for (int column = 0; column < SIZE; ++column)
            text += joined({column == 0 ? "" : " ", numberText(matrix[row][column])});
    }
    return text;
}

template<class Number>
std::string textOf(const Imath::Matrix33<Number>& value)
{
    return matrixText<Imath::Matrix33<Number>, 3>(value);
}

template<class Number>
std::string textOf(const Imath::Matrix44<Number>& value)
{
    return matrixText<Imath::Matrix44<Number>, 4>(value);
}

std::string textOf(const Imf::FloatVector& value)
{
    return listText(value);
}

std::string textOf(const Imf::StringVector& value)
{
    return listText(value);
}

std::string textOf(const Imf::Chromaticities& value)
{
    return joined({"red ", textOf(value.red), ", green ", textOf(value.green), ", blue ", textOf(value.blue),
                   ", white ", textOf(value.white)});
}

template<std::size_t COUNT>
std::string nameAt(const std::array<const char*, COUNT>& names, int index)
{
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < COUNT ? names[place] : numberText(index);
}

std::string textOf(Imf::Compression value)
{
    static constexpr std::array<const char*, 10> NAMES{"none",  "RLE", "ZIPS", "ZIP",  "PIZ",
                                                       "PXR24", "B44", "B44A", "DWAA", "DWAB"};
    return nameAt(NAMES, value);
}

std::string textOf(Imf::LineOrder value)
{
    static constexpr std::array<const char*, 3> NAMES{"increasing y", "decreasing y", "random y"};
    return nameAt(NAMES, value);
}

std::string textOf(Imf::Envmap value)
{
    static constexpr std::array<const char*, 2> NAMES{"latitude and longitude", "cube"};
    return nameAt(NAMES, value);
}

std::string textOf(const Imf::ChannelList& value)
{
    static constexpr std::array<const char*, 3> TYPES{"integer", "half", "float"};
    std::string text;
    for (auto channel = value.begin(); channel != value.end(); ++channel)
        text +=
            joined({text.empty() ? "" : ", ", channel.name(), " ", nameAt(TYPES, channel.channel().type)});
    return text;
}

std::string textOf(const Imf::TileDescription& value)
{
    static constexpr std::array<const char*, 3> LEVELS{"one level", "mipmap levels", "ripmap levels"};
    return joined(
        {numberText(value.xSize), " x ", numberText(value.ySize), ", ", nameAt(LEVELS, value.mode)});
}

std::string twoDigits(int number)
{
    return joined({(number < 10 ? "0" : ""), numberText(number)});
}

std::string textOf(const Imf::TimeCode& value)
{
    return joined({twoDigits(value.hours()), ":", twoDigits(value.minutes()), ":", twoDigits(value.seconds()),
                   (value.dropFrame() ? ";" : ":"), twoDigits(value.frame())});
}

std::string textOf(const Imf::KeyCode& value)
{
    return joined({"manufacturer ", numberText(value.filmMfcCode()), ", film ", numberText(value.filmType()),
                   ", prefix ", numberText(value.prefix()), ", count ", numberText(value.count()),
                   ", offset ", numberText(value.perfOffset())});
}

std::string textOf(const Imf::Rational& value)
{
    return joined({numberText(value.n), "/", numberText(value.d)});
}

std::string textOf(const Imf::PreviewImage& value)
{
    return joined({numberText(value.width()), " x ", numberText(value.height()), " pixels"});
}

// Sets the text if the attribute has a value of this type.
template<class Value>
bool takeText(const Imf::Attribute& attribute, std::string& text)
{
    const auto* typed = dynamic_cast<const Imf::TypedAttribute<Value>*>(&attribute);
    if (typed == nullptr)
        return false;
    text = textOf(typed->value());
    return true;
}

template<class... Values>
std::string textOfAnyOf(const Imf::Attribute& attribute)
{
    std::string text;
    if ((takeText<Values>(attribute, text) || ...))
        return text;
    return joined({"a value of type ", attribute.typeName()});
}

std::string attributeText(const Imf::Attribute& attribute)
{
    return textOfAnyOf<std::string, int, float, double, Imath::V2i, Imath::V2f, Imath::V2d, Imath::V3i,
                       Imath::V3f, Imath::V3d, Imath::Box2i, Imath::Box2f, Imath::M33f, Imath::M33d,
                       Imath::M44f, Imath::M44d, Imf::FloatVector, Imf::StringVector, Imf::Chromaticities,
                       Imf::Compression, Imf::LineOrder, Imf::Envmap, Imf::ChannelList, Imf::TileDescription,
                       Imf::TimeCode, Imf::KeyCode, Imf::Rational, Imf::PreviewImage>(attribute);
}

bool isLasting(std::string_view name)
{
    static constexpr std::array<std::string_view, 18> OF_THE_FILE{
        // How the pixels are stored
        "channels", "chunkCount", "compression", "dataWindow", "displayWindow", "dwaCompressionLevel",
        "lineOrder", "maxSamplesPerPixel", "tiles", "type", "version", "zipCompressionLevel",
        // What the channels and the parts are called
        "name", "view", "multiView", "idManifest", "deepImageState",
        // What shows the old pixels
        "preview"};
    return std::ranges::find(OF_THE_FILE, name) == OF_THE_FILE.end() && !name.starts_with("cryptomatte/");
}

} // namespace

void copyLastingAttributes(const Imf::Header& from, Imf::Header& to)
{
    for (auto attribute = from.begin(); attribute != from.end(); ++attribute) {
        if (isLasting(attribute.name()))
            to.insert(attribute.name(), attribute.attribute());
    }
}

Array<MetadataEntry> openExrMetadata(const Imf::Header& header)
{
    Array<MetadataEntry> entries;
    for (auto attribute = header.begin(); attribute != header.end(); ++attribute)
        entries.push_back(
            {String::fromUtf8(attribute.name()), String::fromUtf8(attributeText(attribute.attribute()))});
    return entries;
}

} // namespace Nolvex::Viewer
