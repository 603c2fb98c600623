// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrLayers.h"

#include "apps/viewer/reading/OpenExrReading.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::expectPixels;
using Tests::exrFile;
using Tests::ExrPart;
using Tests::partOf;
using Tests::readLayer;
using Tests::valueOf;
using Viewer::OpenExrReader;

namespace {

Array<String> layerNames(const Array<std::byte>& file)
{
    Array<String> names;
    const auto layers = OpenExrReader().layers(file);
    if (layers) {
        for (const Viewer::PictureLayer& layer : *layers)
            names.push_back(layer.name);
    }
    return names;
}

} // namespace

TEST(OpenExrLayersTest, channels_areGroupedToLayers)
{
    const ExrPart part = partOf({{"R"},
                                 {"G"},
                                 {"B"},
                                 {"A"},
                                 {"Z", Imf::FLOAT},
                                 {"diffuse.R"},
                                 {"diffuse.G"},
                                 {"diffuse.B"},
                                 {"N.X"},
                                 {"N.Y"},
                                 {"N.Z"},
                                 {"uv.u"},
                                 {"uv.v"},
                                 {"mask.Y"},
                                 {"light.key.red"},
                                 {"light.key.green"},
                                 {"light.key.blue"},
                                 {"crypto00.r"},
                                 {"crypto00.g"},
                                 {"crypto00.b"},
                                 {"crypto00.a"},
                                 {"two.R"},
                                 {"two.G"}});
    const Array<std::byte> file = exrFile({part});
    const auto layers = OpenExrReader().layers(file);
    ASSERT_TRUE(layers.hasValue());
    const Array<Viewer::PictureLayer> wanted{{L"", {L"R", L"G", L"B", L"A"}},
                                             {L"Z", {L"Z"}},
                                             {L"N", {L"X", L"Y", L"Z"}},
                                             {L"crypto00", {L"r", L"g", L"b", L"a"}},
                                             {L"diffuse", {L"R", L"G", L"B"}},
                                             {L"light.key", {L"red", L"green", L"blue"}},
                                             {L"mask", {L"Y"}},
                                             {L"two.G", {L"G"}},
                                             {L"two.R", {L"R"}},
                                             {L"uv", {L"u", L"v", L""}}};
    EXPECT_EQ(*layers, wanted);

    const Array<Array<int>> channels{{0, 1, 2, 3}, {4},          {8, 9, 10},   {17, 18, 19, 20},
                                     {5, 6, 7},    {14, 15, 16}, {13, 13, 13}, {22},
                                     {21},         {11, 12}};
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto read = readLayer(file, i);
        ASSERT_TRUE(read.hasValue()) << i;
        expectPixels(*read, part, channels[i]);
    }
    EXPECT_FALSE(readLayer(file, channels.size()).hasValue());
}

TEST(OpenExrLayersTest, mainLayer_comesFirst)
{
    EXPECT_EQ(layerNames(exrFile({partOf({{"AO.Y"},
                                          {"View.Combined.R"},
                                          {"View.Combined.G"},
                                          {"View.Combined.B"},
                                          {"Albedo.R"},
                                          {"Albedo.G"},
                                          {"Albedo.B"}})})),
              (Array<String>{L"View.Combined", L"AO", L"Albedo"}));
    EXPECT_EQ(layerNames(exrFile({partOf({{"P.X"}, {"P.Y"}, {"P.Z"}, {"a.R"}, {"a.G"}, {"a.B"}, {"Z"}})})),
              (Array<String>{L"a", L"Z", L"P"}));
    EXPECT_EQ(layerNames(exrFile({partOf({{"Z"}, {"A.Y"}})})), (Array<String>{L"Z", L"A"}));
}

TEST(OpenExrLayersTest, parts_giveTheirNamesToLayers)
{
    ExrPart depth = partOf({{"Z", Imf::FLOAT}});
    depth.name = "depth";
    depth.isTiled = true;
    ExrPart beauty = partOf({{"R"}, {"G"}, {"B"}, {"A"}, {"spec.R"}, {"spec.G"}, {"spec.B"}});
    beauty.name = "beauty";
    beauty.data = {{2, 3}, {9, 8}};
    ExrPart diffuse = partOf({{"diffuse.R"}, {"diffuse.G"}, {"diffuse.B"}});
    diffuse.name = "diffuse";
    const Array<std::byte> file = exrFile({depth, beauty, diffuse});
    ASSERT_EQ(layerNames(file), (Array<String>{L"beauty", L"depth.Z", L"beauty.spec", L"diffuse"}));

    const auto first = readLayer(file, 0);
    ASSERT_TRUE(first.hasValue());
    expectPixels(*first, beauty, {0, 1, 2, 3});
    EXPECT_EQ(first->origin, (Pixel{2, 3}));
    EXPECT_EQ(valueOf(*first, L"name"), String(L"beauty"));
    const auto second = readLayer(file, 1);
    ASSERT_TRUE(second.hasValue());
    expectPixels(*second, depth, {0});
    const auto last = readLayer(file, 3);
    ASSERT_TRUE(last.hasValue());
    expectPixels(*last, diffuse, {0, 1, 2});
}
