// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/detail/RgbDataObject.h"

#include <wx/clipbrd.h>

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

using namespace Nolvex;
using Wx::RgbDataObject;

namespace {

using Payload = std::array<unsigned char, 16>;

Payload payloadOf(const Rgb& color)
{
    Payload payload{};
    EXPECT_TRUE(RgbDataObject(color).GetDataHere(payload.data()));
    return payload;
}

using Bits = std::array<std::uint32_t, 4>;

Bits bitsOf(const Rgb& color)
{
    return std::bit_cast<Bits>(color);
}

constexpr float ENDLESS = std::numeric_limits<float>::infinity();

} // namespace

TEST(RgbDataObjectTest, format_isNamedExactly)
{
    EXPECT_EQ(RgbDataObject().GetFormat().GetId(), "Quillane-Rgb");
    EXPECT_EQ(RgbDataObject().GetFormatCount(), 1u);
}

TEST(RgbDataObjectTest, payload_isSixteenBytes)
{
    EXPECT_EQ(RgbDataObject().GetDataSize(), 16u);
    EXPECT_EQ(RgbDataObject(Rgb{1, 2, 3, 4}).GetDataSize(), 16u);
    std::array<unsigned char, 18> room{};
    room.fill(0xEE);
    ASSERT_TRUE(RgbDataObject(Rgb{1, 2, 3, 4}).GetDataHere(room.data() + 1));
    EXPECT_EQ(room.front(), 0xEE);
    EXPECT_EQ(room.back(), 0xEE);
}

TEST(RgbDataObjectTest, payload_isFourLittleEndianFloats)
{
    const Payload expected{0x00, 0x00, 0x80, 0x3F,  // 1
                           0x00, 0x00, 0x20, 0xC0,  // -2.5
                           0xDB, 0x0F, 0x49, 0x40,  // pi
                           0x00, 0x00, 0x00, 0x3F}; // 0.5
    EXPECT_EQ(payloadOf({1.0f, -2.5f, 3.14159274f, 0.5f}), expected);
    RgbDataObject received;
    ASSERT_TRUE(received.SetData(expected.size(), expected.data()));
    EXPECT_EQ(received.color(), Optional<Rgb>(Rgb{1.0f, -2.5f, 3.14159274f, 0.5f}));
}

TEST(RgbDataObjectTest, everyBitPattern_passesUnchanged)
{
    constexpr Bits PATTERNS[] = {
        {0x7FC00000, 0xFFC12345, 0x7F800001, 0xFF800001}, // NaNs, also signalling ones
        {0x7F800000, 0xFF800000, 0x80000000, 0x00000001}, // infinities, negative zero, the smallest number
        {0x7F7FFFFF, 0xFF7FFFFF, 0x3F800001, 0xBF800000}, // the greatest numbers, just above 1, -1
    };
    for (const Bits& pattern : PATTERNS) {
        const Payload sent = payloadOf(std::bit_cast<Rgb>(pattern));
        RgbDataObject received;
        ASSERT_TRUE(received.SetData(sent.size(), sent.data()));
        EXPECT_EQ(bitsOf(*received.color()), pattern);
    }
}

TEST(RgbDataObjectTest, objectWithoutAColour_givesNothing)
{
    Payload untouched{};
    untouched.fill(0xEE);
    Payload room = untouched;
    EXPECT_FALSE(RgbDataObject().GetDataHere(room.data()));
    EXPECT_EQ(room, untouched);
    EXPECT_EQ(RgbDataObject().color(), Optional<Rgb>());
}

TEST(RgbDataObjectTest, shorterData_isRefusedWithoutReadingBeyondItsEnd)
{
    const Payload whole = payloadOf({0.25f, 0.5f, 0.75f, 1.0f});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        // The allocation is as small as the data, so that the address sanitizer sees a read beyond the end.
        const std::vector<unsigned char> data(whole.begin(),
                                              whole.begin() + static_cast<std::ptrdiff_t>(length));
        RgbDataObject received(Rgb{1, 1, 1, 1});
        EXPECT_FALSE(received.SetData(data.size(), data.data())) << length;
        EXPECT_EQ(received.color(), Optional<Rgb>()) << "a colour that arrived before is not taken again";
    }
}

TEST(RgbDataObjectTest, longerData_countsWithItsFirstSixteenBytes)
{
    constexpr std::size_t THREE_MEGABYTES = 3 << 20;
    const Payload start = payloadOf({0.25f, -0.5f, ENDLESS, 1.0f});
    std::vector<unsigned char> data(THREE_MEGABYTES, 0xAB);
    std::memcpy(data.data(), start.data(), start.size());
    RgbDataObject received;
    ASSERT_TRUE(received.SetData(data.size(), data.data()));
    EXPECT_EQ(received.color(), Optional<Rgb>(Rgb{0.25f, -0.5f, ENDLESS, 1.0f}));
}

TEST(RgbDataObjectTest, clipboard_carriesTheColour)
{
    ASSERT_TRUE(wxTheClipboard->Open());
    ASSERT_TRUE(wxTheClipboard->SetData(new RgbDataObject(Rgb{0.25f, -3.0f, 42.0f, 0.0f})));
    RgbDataObject received;
    EXPECT_TRUE(wxTheClipboard->GetData(received));
    wxTheClipboard->Clear();
    wxTheClipboard->Close();
    EXPECT_EQ(received.color(), Optional<Rgb>(Rgb{0.25f, -3.0f, 42.0f, 0.0f}));
}
