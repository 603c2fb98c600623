// SPDX-License-Identifier: MIT
#include "apps/viewer/reading/OpenExrMetadata.h"

#include "apps/viewer/reading/OpenExrReading.h"

#include <gtest/gtest.h>

#include <ImfChromaticitiesAttribute.h>
#include <ImfDoubleAttribute.h>
#include <ImfFloatAttribute.h>
#include <ImfIntAttribute.h>
#include <ImfMatrixAttribute.h>
#include <ImfRationalAttribute.h>
#include <ImfStringAttribute.h>
#include <ImfStringVectorAttribute.h>
#include <ImfTimeCodeAttribute.h>
#include <ImfVecAttribute.h>

#include <limits>
#include <string>

using namespace Nolvex;
using Tests::exrFile;
using Tests::ExrPart;
using Tests::readLayer;
using Tests::valueOf;

TEST(OpenExrMetadataTest, attributes_becomeText)
{
    ExrPart part;
    part.data = {{-2, 0}, {18, 12}};
    const Array<std::byte> file = exrFile({part}, [](Imf::Header& header) {
        header.insert("artist", Imf::StringAttribute("J\xC3\xB6rg"));
        header.insert("samples", Imf::IntAttribute(512));
        header.insert("exposure", Imf::FloatAttribute(-1.5f));
        header.insert("step", Imf::DoubleAttribute(0.1));
        header.insert("eye", Imf::V3fAttribute(Imath::V3f(1, 2.5f, -3)));
        header.insert("worldToCamera", Imf::M33fAttribute(Imath::M33f()));
        header.insert("passes", Imf::StringVectorAttribute({"direct", "indirect"}));
        header.insert("timeCode", Imf::TimeCodeAttribute(Imf::TimeCode(1, 2, 3, 4)));
        header.insert("framesPerSecond", Imf::RationalAttribute(Imf::Rational(24000, 1001)));
        header.insert("chromaticities", Imf::ChromaticitiesAttribute(Imf::Chromaticities()));
    });
    const auto read = readLayer(file);
    ASSERT_TRUE(read.hasValue());
    EXPECT_EQ(valueOf(*read, L"artist"), String(L"J\u00F6rg"));
    EXPECT_EQ(valueOf(*read, L"samples"), String(L"512"));
    EXPECT_EQ(valueOf(*read, L"exposure"), String(L"-1.5"));
    EXPECT_EQ(valueOf(*read, L"step"), String(L"0.1"));
    EXPECT_EQ(valueOf(*read, L"eye"), String(L"(1, 2.5, -3)"));
    EXPECT_EQ(valueOf(*read, L"worldToCamera"), String(L"1 0 0; 0 1 0; 0 0 1"));
    EXPECT_EQ(valueOf(*read, L"passes"), String(L"direct, indirect"));
    EXPECT_EQ(valueOf(*read, L"timeCode"), String(L"01:02:03:04"));
    EXPECT_EQ(valueOf(*read, L"framesPerSecond"), String(L"24000/1001"));
    EXPECT_EQ(valueOf(*read, L"chromaticities"),
              String(L"red (0.64, 0.33), green (0.3, 0.6), blue (0.15, 0.06), white (0.3127, 0.329)"));
    EXPECT_EQ(valueOf(*read, L"dataWindow"), String(L"(-2, 0) to (18, 12)"));
    EXPECT_EQ(valueOf(*read, L"compression"), String(L"ZIP"));
    EXPECT_EQ(valueOf(*read, L"lineOrder"), String(L"increasing y"));
    EXPECT_EQ(valueOf(*read, L"channels"), String(L"B half, G half, R half"));
}
