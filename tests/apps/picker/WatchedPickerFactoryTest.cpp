// SPDX-License-Identifier: MIT
#include "apps/picker/WatchedPickerFactory.h"

#include "../../NolvexLibWx/widgets/ImageSaveSettingsFixture.h"
#include "NolvexLibWx/NativeWindows.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"

#include <stdexcept>

using namespace Nolvex;
using Tests::typeKey;

namespace {

struct WatchedPickerFactoryTest : Tests::FrameFixture
{
    WatchedPickerFactoryTest() { showFrame(); }

    /// Makes a picker that a key ends.
    AutoPtr<IColorPicker> make()
    {
        return Picker::WatchedPickerFactory([this] { ++ended; })
            .createPicker(Wx::getWindowNativeHandle(panel), L"Colour", wxDefaultPosition, {1, 0, 0, 1});
    }

    int ended = 0;
};

} // namespace

TEST_F(WatchedPickerFactoryTest, cancelledPicker_hasEnded)
{
    const Tests::DialogScript script([](wxDialog&) { typeKey(WXK_ESCAPE); });
    make()->runModal();
    EXPECT_EQ(ended, 1);
}

TEST_F(WatchedPickerFactoryTest, committedPicker_hasEndedAfterTheCallback)
{
    const Tests::DialogScript script([](wxDialog&) { typeKey(WXK_RETURN); });
    const AutoPtr<IColorPicker> picker = make();
    int endedAtCommit = -1;
    picker->setCommitCallback([&](const Rgb&) { endedAtCommit = ended; });
    picker->runModal();
    EXPECT_EQ(endedAtCommit, 0);
    EXPECT_EQ(ended, 1);
}

TEST_F(WatchedPickerFactoryTest, pickerThatThrows_hasEnded)
{
    const Tests::DialogScript script([](wxDialog&) { typeKey(WXK_RETURN); });
    const AutoPtr<IColorPicker> picker = make();
    picker->setCommitCallback([](const Rgb&) { throw std::runtime_error("no colour today"); });
    EXPECT_THROW(picker->runModal(), std::runtime_error);
    EXPECT_EQ(ended, 1);
}
