// SPDX-License-Identifier: MIT
#include "NolvexLibWx/detail/NativeDialogMapping.h"

#include "NolvexLibWx/MessageDialogButton.h"
#include "support/StopLine.h"

#include <gtest/gtest.h>

using namespace Nolvex;
using Tests::stopLine;
using Wx::MessageDialogButton;
using Wx::MessageDialogIcon;

namespace {

using Controls = Stack<const Wx::MessageDialogControl*>;

const Controls OK_CANCEL{&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
const Controls YES_NO{&MessageDialogButton::YES, &MessageDialogButton::NO};

} // namespace

TEST(NativeDialogMappingTest, style_isThatOfTheIconAndTheButtons)
{
    using NativeDialogMapping::style;
    EXPECT_EQ(style(MessageDialogIcon::NONE, {}), 0x48001);
    EXPECT_EQ(style(MessageDialogIcon::ERROR, {}), 0x8201);
    EXPECT_EQ(style(MessageDialogIcon::WARNING, {}), 0x8101);
    EXPECT_EQ(style(MessageDialogIcon::INFO, {}), 0x8801);
    EXPECT_EQ(style(MessageDialogIcon::QUESTION, {}), 0x8401);
    EXPECT_EQ(style(MessageDialogIcon::ERROR, YES_NO), 0x8201 | 0xA);
    EXPECT_EQ(style(MessageDialogIcon::ERROR, OK_CANCEL), 0x8201 | 0x14);
    EXPECT_EQ(style(MessageDialogIcon::ERROR, Controls{&MessageDialogButton::OK}), 0x8201 | 0x4);
    EXPECT_EQ(style(MessageDialogIcon::ERROR, Controls{&MessageDialogButton::YES}), 0x8201)
        << "Yes without No is no question";
    EXPECT_EQ(style(MessageDialogIcon::ERROR, Controls{&MessageDialogButton::YES, &MessageDialogButton::NO,
                                                       &MessageDialogButton::CANCEL}),
              0x8201 | 0x1A);
}

TEST(NativeDialogMappingTest, styleOfOtherIcons_isFatal)
{
    for (const int icon : {5, 6, 99, -1}) {
        EXPECT_EQ(
            stopLine([icon] { NativeDialogMapping::style(static_cast<MessageDialogIcon>(icon), YES_NO); }),
            354);
    }
}

TEST(NativeDialogMappingTest, results_areTheIdentifiersOfTheControls)
{
    EXPECT_EQ(NativeDialogMapping::controlId(5100), 16002);
    EXPECT_EQ(NativeDialogMapping::controlId(5101), 16003);
    EXPECT_EQ(NativeDialogMapping::controlId(5103), 16004);
    EXPECT_EQ(NativeDialogMapping::controlId(5104), 16005);
    for (const int result : {0, -1, 5102, 5105, 16002})
        EXPECT_EQ(stopLine([result] { NativeDialogMapping::controlId(result); }), 389);
}
