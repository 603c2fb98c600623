// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrLayers.h"

#include <ImfChannelList.h>
#include <ImfHeader.h>
#include <ImfPartType.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

namespace Nolvex::Viewer {

namespace {

using Kind = OpenExrLayer::Kind;

/// Channels that belong together if a layer has all of them.
struct ChannelSet
{
    Kind kind;
    Array<std::string_view> colours;
    std::string_view alpha; // the channel that the set takes if there is one
};

const Array<ChannelSet>& channelSets()
{
    static const Array<ChannelSet> SETS{
        {Kind::COLOUR, {"R", "G", "B"}, "A"},
        {Kind::COLOUR, {"r", "g", "b"}, "a"},
        {Kind::COLOUR, {"red", "green", "blue"}, "alpha"},
        {Kind::COLOUR, {"X", "Y", "Z"}, {}},
        {Kind::COLOUR, {"x", "y", "z"}, {}},
        {Kind::LUMINANCE_CHROMA, {"Y", "RY", "BY"}, "A"},
        {Kind::GREY, {"Y"}, "A"},
        {Kind::COLOUR, {"U", "V"}, {}},
        {Kind::COLOUR, {"u", "v"}, {}},
    };
    return SETS;
}

/// The channels of a part whose names begin with the same prefix, by the rest of their names.
using Group = std::map<std::string, std::string>;

// The prefix ends with the last dot.
std::map<std::string, Group> groupsOf(const Imf::Header& header)
{
    std::map<std::string, Group> groups;
    const Imf::ChannelList& channels = header.channels();
    for (auto channel = channels.begin(); channel != channels.end(); ++channel) {
        const std::string name = channel.name();
        const std::size_t dot = name.rfind('.');
        const std::size_t start = dot == std::string::npos ? 0 : dot + 1;
        groups[name.substr(0, start)].emplace(name.substr(start), name);
    }
    return groups;
}

std::string withoutDot(std::string_view prefix)
{
    return std::string(prefix.substr(0, prefix.size() - (prefix.empty() ? 0 : 1)));
}

// Many programs name the channels of a part after the part, too.
std::string inPart(const std::string& part, const std::string& name)
{
    if (part.empty() || name == part || name.starts_with(part + "."))
        return name;
    return name.empty() ? part : part + "." + name;
}

/// Distributes the channels of one group to layers.
class GroupLayers
{
public:
    GroupLayers(int part, std::string partName, std::string prefix, Group group)
        : m_part(part),
          m_partName(std::move(partName)),
          m_prefix(std::move(prefix)),
          m_group(std::move(group))
    {}

    Array<OpenExrLayer> take() &&
    {
        for (const ChannelSet& set : channelSets())
            takeSet(set);
        while (!m_group.empty()) {
            const std::string rest = m_group.begin()->first;
            addLayer(Kind::GREY, m_prefix + rest, {takeChannel(rest)}, {});
        }
        return std::move(m_layers);
    }

private:
    void takeSet(const ChannelSet& set)
    {
        for (const std::string_view colour : set.colours) {
            if (!m_group.contains(std::string(colour)))
                return;
        }
        Array<std::string> channels;
        std::string rests;
        for (const std::string_view colour : set.colours) {
            channels.push_back(takeChannel(std::string(colour)));
            rests += colour;
        }
        const bool hasAlpha = !set.alpha.empty() && m_group.contains(std::string(set.alpha));
        const std::string alpha = hasAlpha ? takeChannel(std::string(set.alpha)) : std::string();
        // The first set of a group bears the name of the group.
        addLayer(set.kind, m_layers.empty() ? withoutDot(m_prefix) : m_prefix + rests, std::move(channels),
                 alpha);
    }

    std::string takeChannel(const std::string& rest) { return std::move(m_group.extract(rest).mapped()); }

    void addLayer(Kind kind, const std::string& name, Array<std::string> channels, std::string alpha)
    {
        m_layers.push_back({.part = m_part,
                            .kind = kind,
                            .name = inPart(m_partName, name),
                            .prefix = m_prefix,
                            .channels = std::move(channels),
                            .alpha = std::move(alpha)});
    }

    int m_part;
    std::string m_partName;
    std::string m_prefix;
    Group m_group;
    Array<OpenExrLayer> m_layers;
};

// Renderers that give a prefix to every channel use these names for the main image.
bool hasMainName(std::string_view name)
{
    std::string last(name.substr(name.rfind('.') + 1));
    std::transform(last.begin(), last.end(), last.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return last == "rgba" || last == "rgb" || last == "beauty" || last == "combined";
}

int importance(const OpenExrLayer& layer)
{
    constexpr int COLOUR_WITHOUT_PREFIX = 5;
    constexpr int COLOUR_WITH_MAIN_NAME = 4;
    constexpr int GREY_WITHOUT_PREFIX = 3;
    constexpr int COLOUR = 2;
    const bool isColour = layer.kind == Kind::LUMINANCE_CHROMA ||
                          (layer.kind == Kind::COLOUR &&
                           (layer.channels[0].ends_with('R') || layer.channels[0].ends_with('r') ||
                            layer.channels[0].ends_with("red")));
    if (isColour && layer.prefix.empty())
        return COLOUR_WITHOUT_PREFIX;
    if (isColour && hasMainName(layer.name))
        return COLOUR_WITH_MAIN_NAME;
    if (layer.prefix.empty() && layer.channels[0] == "Y")
        return GREY_WITHOUT_PREFIX;
    return isColour ? COLOUR : 0;
}

} // namespace

PictureLayer OpenExrLayer::described() const
{
    const auto rest = [this](const std::string& channel) {
        return String::fromUtf8(std::string_view(channel).substr(prefix.size()));
    };
    PictureLayer layer{String::fromUtf8(name)};
    if (kind == Kind::LUMINANCE_CHROMA) {
        layer.channels = {L"R", L"G", L"B"};
    } else {
        for (const std::string& channel : channels)
            layer.channels.push_back(rest(channel));
        // The image has a third channel, too, which is 0, and grey with alpha is stored as colours.
        if (kind == Kind::COLOUR)
            layer.channels.resize(3);
        else if (!alpha.empty())
            layer.channels.resize(3, layer.channels[0]);
    }
    if (!alpha.empty())
        layer.channels.push_back(rest(alpha));
    return layer;
}

Array<OpenExrLayer> openExrLayers(const OpenExrFile& file)
{
    Array<OpenExrLayer> layers;
    for (int part = 0; part < file.partCount(); ++part) {
        const Imf::Header& header = file.header(part);
        if (isDeep(header))
            continue;
        const std::string partName = file.partCount() > 1 && header.hasName() ? header.name() : std::string();
        for (auto& [prefix, group] : groupsOf(header)) {
            Array<OpenExrLayer> found = GroupLayers(part, partName, prefix, group).take();
            std::move(found.begin(), found.end(), std::back_inserter(layers));
        }
    }
    const auto main = std::max_element(layers.begin(), layers.end(), [](const auto& a, const auto& b) {
        return importance(a) < importance(b);
    });
    if (main != layers.end())
        std::rotate(layers.begin(), main, std::next(main));
    return layers;
}

bool isDeep(const Imf::Header& header)
{
    return header.hasType() && Imf::isDeepData(header.type());
}

} // namespace Nolvex::Viewer
