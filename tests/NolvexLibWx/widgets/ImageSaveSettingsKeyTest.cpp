// SPDX-License-Identifier: MIT
#include "ImageSaveSettingsFixture.h"
#include "support/KeypadEnter.h"

namespace Nolvex::Tests {
namespace {

/// Operates the dialog by real keys.
struct ImageSaveSettingsKeyTest : ImageSaveSettingsFixture
{
    static bool comesToFocus(const wxWindow* window)
    {
        return pumpUntil([window] { return wxWindow::FindFocus() == window; });
    }
};

TEST_F(ImageSaveSettingsKeyTest, selectedRadioButton_hasTheFocusFirst)
{
    RecordingProvider provider;
    provider.remembered = Settings{ColorFormat::UINT16_RGB, true};
    request(
        ImageFormat::TIFF,
        [](wxDialog& dialog) {
            EXPECT_TRUE(comesToFocus(radioButtons(dialog).at(1)));
            EXPECT_EQ(selectedButton(dialog), radioButtons(dialog).at(1));
            typeKey(WXK_ESCAPE);
        },
        &provider);
}

TEST_F(ImageSaveSettingsKeyTest, checkBoxAlone_hasTheFocusFirst_andSpaceClearsIt)
{
    const Result result = request(ImageFormat::TARGA, [](wxDialog& dialog) {
        EXPECT_TRUE(comesToFocus(alphaBox(dialog)));
        typeKey(WXK_TAB);
        EXPECT_TRUE(comesToFocus(alphaBox(dialog)));
        typeKey(WXK_SPACE);
        EXPECT_TRUE(pumpUntil([&] { return !alphaBox(dialog)->GetValue(); }));
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(result, (Settings{ColorFormat::UINT8_RGB, false}));
}

TEST_F(ImageSaveSettingsKeyTest, arrows_selectTheNextAndPreviousRadioButtonAndGoRound)
{
    const Result result = request(ImageFormat::TIFF, [](wxDialog& dialog) {
        const std::vector<wxRadioButton*> buttons = radioButtons(dialog);
        ASSERT_TRUE(comesToFocus(buttons.at(0)));
        const std::pair<int, std::size_t> steps[] = {{WXK_DOWN, 1}, {WXK_RIGHT, 2}, {WXK_DOWN, 3},
                                                     {WXK_DOWN, 0}, {WXK_UP, 3},    {WXK_LEFT, 2}};
        for (const auto& [key, next] : steps) {
            typeKey(key);
            EXPECT_TRUE(pumpUntil([&] { return selectedButton(dialog) == buttons.at(next); })) << next;
            EXPECT_TRUE(comesToFocus(buttons.at(next))) << next;
        }
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(result, (Settings{ColorFormat::FLT16_LINEAR_RGB, true}));
}

TEST_F(ImageSaveSettingsKeyTest, tab_goesFromTheRadioButtonsToTheCheckBoxAndBack)
{
    const Result result = request(ImageFormat::TIFF, [](wxDialog& dialog) {
        const std::vector<wxRadioButton*> buttons = radioButtons(dialog);
        ASSERT_TRUE(comesToFocus(buttons.at(0)));
        typeKey(WXK_DOWN);
        ASSERT_TRUE(comesToFocus(buttons.at(1)));
        for (const int modifier : {wxMOD_NONE, wxMOD_SHIFT}) {
            typeKey(WXK_TAB, modifier);
            EXPECT_TRUE(comesToFocus(alphaBox(dialog))) << modifier;
            typeKey(WXK_TAB, modifier);
            EXPECT_TRUE(comesToFocus(buttons.at(1))) << modifier;
        }
        EXPECT_EQ(selectedButton(dialog), buttons.at(1));
        typeKey(WXK_TAB);
        ASSERT_TRUE(comesToFocus(alphaBox(dialog)));
        typeKey(WXK_SPACE);
        EXPECT_TRUE(pumpUntil([&] { return !alphaBox(dialog)->GetValue(); }));
        typeKey(WXK_RETURN);
    });
    EXPECT_EQ(result, (Settings{ColorFormat::UINT16_RGB, false}));
}

TEST_F(ImageSaveSettingsKeyTest, atEveryFocus_enterConfirmsAndEscapeCancels)
{
    const std::pair<std::function<void()>, bool> keys[] = {{[] { typeKey(WXK_RETURN); }, true},
                                                           {[] { pressKeypadEnter(); }, true},
                                                           {[] { typeKey(WXK_ESCAPE); }, false}};
    for (const bool atCheckBox : {false, true}) {
        for (const auto& [press, confirms] : keys) {
            const Result result = request(ImageFormat::PNG, [&, &pressKey = press](wxDialog& dialog) {
                wxWindow* const focused =
                    atCheckBox ? static_cast<wxWindow*>(alphaBox(dialog)) : radioButtons(dialog).at(0);
                focused->SetFocus();
                EXPECT_TRUE(comesToFocus(focused));
                pressKey();
            });
            EXPECT_EQ(result.has_value(), confirms) << atCheckBox;
        }
    }
}

TEST_F(ImageSaveSettingsKeyTest, otherKeys_leaveTheDialogOpen)
{
    request(ImageFormat::PNG, [](wxDialog& dialog) {
        for (const int key : {static_cast<int>('O'), static_cast<int>('C'), static_cast<int>(WXK_F4)}) {
            typeKey(key);
            EXPECT_TRUE(dialog.IsModal()) << key;
        }
        typeKey(WXK_ESCAPE);
    });
}

} // namespace
} // namespace Nolvex::Tests
