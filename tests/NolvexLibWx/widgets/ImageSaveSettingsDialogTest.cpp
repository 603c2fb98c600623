// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"

#include "ImageSaveSettingsFixture.h"
#include "NolvexLib/FontScale.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/Button.h"
#include "support/MessageDialogDriver.h"

#include <wx/statbox.h>

#include <gmock/gmock.h>

#include <stdexcept>

namespace Nolvex {

void PrintTo(const Wx::ImageSaveSettings& settings, std::ostream* out)
{
    *out << getColorFormatName(settings.colorFormat).toUtf8()
         << (settings.includeAlpha ? " with alpha" : " without alpha");
}

} // namespace Nolvex

namespace Nolvex::Tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ColorFormat U8 = ColorFormat::UINT8_RGB;
constexpr ColorFormat U16 = ColorFormat::UINT16_RGB;
constexpr ColorFormat F16 = ColorFormat::FLT16_LINEAR_RGB;
constexpr ColorFormat F32 = ColorFormat::FLT32_LINEAR_RGB;

using Labels = std::vector<wxString>;

Labels labelsOf(const std::vector<wxRadioButton*>& buttons)
{
    Labels labels;
    for (const wxRadioButton* button : buttons)
        labels.push_back(button->GetLabel());
    return labels;
}

struct ImageSaveSettingsDialogTest : ImageSaveSettingsFixture
{
    /// Requests settings for a format that must get no dialog.
    Result requestAtOnce(const ImageFormatDescriptor& format, Dialog::IDefaultsProvider* defaults = nullptr)
    {
        const DialogScript watched([](wxDialog& dialog) { dialog.EndModal(wxID_OK); });
        const Result result = Dialog::requestSettingsFromUser(frame, format, defaults);
        EXPECT_EQ(watched.dialogs(), 0);
        return result;
    }

    static ImageFormatDescriptor describe(Flags<ImageFormatFlag> flags, Flags<ColorFormat> colorFormats)
    {
        ImageFormatDescriptor descriptor = getImageFormatDescriptor(ImageFormat::PNG);
        descriptor.flags = flags;
        descriptor.allowedColorFormats = colorFormats;
        return descriptor;
    }

    RecordingProvider provider;
};

// Without a dialog

TEST_F(ImageSaveSettingsDialogTest, formatsWithoutAChoice_yieldTheDefaultWithAlphaAtOnce)
{
    for (const ImageFormat format :
         {ImageFormat::JPEG, ImageFormat::GIF, ImageFormat::RADIANCE, ImageFormat::CINEON})
        EXPECT_EQ(requestAtOnce(getImageFormatDescriptor(format), &provider),
                  (Settings{ColorFormat::DEFAULT, true}));
    EXPECT_THAT(provider.calls, IsEmpty());
}

TEST_F(ImageSaveSettingsDialogTest, oneColorFormatWithoutAlpha_yieldsTheDefaultWithAlphaAtOnce)
{
    EXPECT_EQ(requestAtOnce(describe(ImageFormatFlag::HAS_SAVE_OPTIONS, F16), &provider),
              (Settings{ColorFormat::DEFAULT, true}));
    EXPECT_THAT(provider.calls, IsEmpty());
}

TEST_F(ImageSaveSettingsDialogTest, alphaWithoutSaveOptions_yieldsTheDefaultWithAlphaAtOnce)
{
    EXPECT_EQ(requestAtOnce(describe(ImageFormatFlag::SUPPORTS_ALPHA, {U8, U16}), &provider),
              (Settings{ColorFormat::DEFAULT, true}));
    EXPECT_THAT(provider.calls, IsEmpty());
}

TEST_F(ImageSaveSettingsDialogTest, unknownImageFormat_isAProgrammingError)
{
    EXPECT_THROW(Dialog::requestSettingsFromUser(frame, static_cast<ImageFormat>(99), nullptr),
                 StopException);
}

TEST_F(ImageSaveSettingsDialogTest, unknownColorFormat_isAProgrammingErrorOfItsOwnLine)
{
    const ImageFormatDescriptor format =
        describe(ImageFormatFlag::HAS_SAVE_OPTIONS, Flags<ColorFormat>::fromBits(0x11));
    try {
        Dialog::requestSettingsFromUser(frame, format, nullptr);
        ADD_FAILURE() << "no exception";
    } catch (const StopException& stop) {
        EXPECT_EQ(stop.file(), std::string("widgets/ImageSaveSettingsDialog"));
        EXPECT_EQ(stop.line(), 63);
    }
}

// What the dialog shows

TEST_F(ImageSaveSettingsDialogTest, dialog_hasItsTitleAndStyle)
{
    request(ImageFormat::PNG, [this](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), L"Save Options");
        EXPECT_EQ(dialog.GetWindowStyle() & (wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER), 0x20001800);
        EXPECT_EQ(dialog.GetParent(), frame.get());
        typeKey(WXK_ESCAPE);
    });
}

TEST_F(ImageSaveSettingsDialogTest, dialog_ofAllFormats_hasARadioButtonForEachColorFormat)
{
    const std::vector<std::pair<ColorFormat, wxString>> labels{{U8, L"8-bit sRGB"},
                                                               {U16, L"16-bit sRGB"},
                                                               {F16, L"16-bit floating-point linear RGB"},
                                                               {F32, L"32-bit floating-point linear RGB"}};
    for (int value = 0; value < IMAGE_FORMAT_COUNT; ++value) {
        const auto format = static_cast<ImageFormat>(value);
        const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(format);
        if (!descriptor.flags.has(ImageFormatFlag::HAS_SAVE_OPTIONS))
            continue;
        SCOPED_TRACE(value);
        Labels expected;
        wxString selected;
        for (const auto& [colorFormat, label] : labels) {
            if (descriptor.allowedColorFormats.has(colorFormat))
                expected.push_back(label);
            if (descriptor.defaultColorFormat == colorFormat)
                selected = label;
        }
        if (expected.size() == 1) {
            expected.clear();
            selected.clear();
        }
        const Result result = request(format, [&](wxDialog& dialog) {
            EXPECT_EQ(labelsOf(radioButtons(dialog)), expected);
            EXPECT_EQ(selectedLabel(dialog), selected);
            ASSERT_NE(alphaBox(dialog), nullptr);
            EXPECT_TRUE(alphaBox(dialog)->GetValue());
            EXPECT_EQ(alphaBox(dialog)->GetLabel(), L"Include alpha channel");
            typeKey(WXK_RETURN);
        });
        EXPECT_EQ(result, (Settings{descriptor.defaultColorFormat, true}));
    }
}

TEST_F(ImageSaveSettingsDialogTest, radioButtons_standInABoxWithATitle)
{
    request(ImageFormat::TIFF, [](wxDialog& dialog) {
        const std::vector<wxRadioButton*> buttons = radioButtons(dialog);
        ASSERT_EQ(buttons.size(), 4u);
        for (const wxRadioButton* button : buttons) {
            const auto* const box = dynamic_cast<wxStaticBox*>(button->GetParent());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->GetLabel(), L"Color format");
        }
        typeKey(WXK_ESCAPE);
    });
}

TEST_F(ImageSaveSettingsDialogTest, severalColorFormatsWithoutAlpha_haveNoCheckBox)
{
    const DialogScript watched([](wxDialog& dialog) {
        EXPECT_EQ(alphaBox(dialog), nullptr);
        EXPECT_EQ(radioButtons(dialog).size(), 2u);
        typeKey(WXK_RETURN);
    });
    const Result result = Dialog::requestSettingsFromUser(
        frame, describe(ImageFormatFlag::HAS_SAVE_OPTIONS, {U8, F32}), nullptr);
    EXPECT_EQ(watched.dialogs(), 1);
    EXPECT_EQ(result, (Settings{U8, false}));
}

TEST_F(ImageSaveSettingsDialogTest, dialog_isCentredOnItsParent)
{
    request(ImageFormat::PNG, [this](wxDialog& dialog) {
        const wxPoint parent = frame->GetRect().GetPosition() + frame->GetSize() / 2;
        const wxPoint own = dialog.GetRect().GetPosition() + dialog.GetSize() / 2;
        // A window manager may shift windows by the width of their frames.
        constexpr int FRAME = 40;
        EXPECT_NEAR(parent.x, own.x, FRAME);
        EXPECT_NEAR(parent.y, own.y, FRAME);
        typeKey(WXK_ESCAPE);
    });
}

TEST_F(ImageSaveSettingsDialogTest, dialog_growsWithTheFontScale)
{
    wxSize normal;
    wxSize large;
    request(ImageFormat::TIFF, [&](wxDialog& dialog) {
        normal = radioButtons(dialog).at(3)->GetSize();
        typeKey(WXK_ESCAPE);
    });
    ASSERT_TRUE(setFontScale(2));
    request(ImageFormat::TIFF, [&](wxDialog& dialog) {
        large = radioButtons(dialog).at(3)->GetSize();
        const wxSize label = dialog.FindWindow(wxID_CANCEL)->GetTextExtent(L"Cancel");
        EXPECT_GE(dialog.FindWindow(wxID_CANCEL)->GetClientSize().y, label.y);
        typeKey(WXK_ESCAPE);
    });
    setFontScale(1);
    EXPECT_GT(large.x, normal.x * 3 / 2);
    EXPECT_GT(large.y, normal.y);
}

TEST_F(ImageSaveSettingsDialogTest, controls_haveTheColoursOfTheDefaultSkin)
{
    request(ImageFormat::PNG, [](wxDialog& dialog) {
        const wxColour background(68, 68, 68);
        const wxColour text(200, 200, 200);
        for (const wxWindow* window : std::initializer_list<wxWindow*>{
                 &dialog, radioButtons(dialog).at(0), radioButtons(dialog).at(0)->GetParent(),
                 alphaBox(dialog), dialog.FindWindow(wxID_OK), dialog.FindWindow(wxID_CANCEL)}) {
            EXPECT_EQ(window->GetBackgroundColour(), background);
            EXPECT_EQ(window->GetForegroundColour(), text);
        }
        typeKey(WXK_ESCAPE);
    });
}

// The defaults provider

TEST_F(ImageSaveSettingsDialogTest, rememberedSettings_areShownAndReturned)
{
    provider.remembered = Settings{F16, false};
    const Result result = request(
        ImageFormat::TIFF,
        [](wxDialog& dialog) {
            EXPECT_EQ(selectedLabel(dialog), L"16-bit floating-point linear RGB");
            EXPECT_FALSE(alphaBox(dialog)->GetValue());
            typeKey(WXK_RETURN);
        },
        &provider);
    EXPECT_EQ(result, (Settings{F16, false}));
    EXPECT_THAT(provider.calls, ElementsAre("get 6 1", "store 6"));
}

TEST_F(ImageSaveSettingsDialogTest, provider_withoutAnAnswer_leavesTheDefaultsOfTheFormat)
{
    const Result result = request(
        ImageFormat::EXR,
        [](wxDialog& dialog) {
            EXPECT_EQ(selectedLabel(dialog), L"16-bit floating-point linear RGB");
            EXPECT_TRUE(alphaBox(dialog)->GetValue());
            click(*radioButtons(dialog).at(1));
            clickButton(dialog, wxID_OK);
        },
        &provider);
    EXPECT_EQ(result, (Settings{F32, true}));
    EXPECT_EQ(provider.remembered, result);
    EXPECT_THAT(provider.calls, ElementsAre("get 3 1", "store 3"));
}

TEST_F(ImageSaveSettingsDialogTest, provider_isToldThatAFormatHasNoAlpha)
{
    const DialogScript watched([](wxDialog&) { typeKey(WXK_ESCAPE); });
    Dialog::requestSettingsFromUser(frame, describe(ImageFormatFlag::HAS_SAVE_OPTIONS, {U8, F32}), &provider);
    EXPECT_THAT(provider.calls, ElementsAre("get 1 0"));
}

TEST_F(ImageSaveSettingsDialogTest, rememberedColorFormatThatIsNotAllowed_isReplacedByTheFirst)
{
    provider.remembered = Settings{F32, false};
    const Result result = request(
        ImageFormat::PNG,
        [](wxDialog& dialog) {
            EXPECT_EQ(selectedLabel(dialog), L"8-bit sRGB");
            typeKey(WXK_RETURN);
        },
        &provider);
    EXPECT_EQ(result, (Settings{U8, false}));
}

TEST_F(ImageSaveSettingsDialogTest, rememberedColorFormat_withoutAChoiceOfColorFormats_isReturned)
{
    provider.remembered = Settings{ColorFormat::DEFAULT, false};
    const Result result = request(
        ImageFormat::BMP, [](wxDialog&) { typeKey(WXK_RETURN); }, &provider);
    EXPECT_EQ(result, (Settings{ColorFormat::DEFAULT, false}));
}

TEST_F(ImageSaveSettingsDialogTest, cancelling_storesNothing)
{
    const auto cancelBy = [this](std::function<void(wxDialog&)> script) {
        provider.calls.clear();
        const Result result = request(ImageFormat::PNG, std::move(script), &provider);
        EXPECT_EQ(result, Result());
        EXPECT_THAT(provider.calls, ElementsAre("get 1 1"));
    };
    cancelBy([](wxDialog&) { typeKey(WXK_ESCAPE); });
    cancelBy([](wxDialog& dialog) { clickButton(dialog, wxID_CANCEL); });
    cancelBy([](wxDialog& dialog) { dialog.Close(); });
}

struct ThrowingProvider : RecordingProvider
{
    Optional<Wx::ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t flags) override
    {
        RecordingProvider::getDefaults(format, flags);
        if (throwsOnGet)
            throw std::runtime_error("get");
        return {};
    }

    void storeSettings(ImageFormat /*format*/, const Wx::ImageSaveSettings& /*settings*/) override
    {
        throw std::runtime_error("store");
    }

    bool throwsOnGet = false;
};

TEST_F(ImageSaveSettingsDialogTest, exceptionOfTheProvider_leavesNoDialogBehind)
{
    ThrowingProvider throwing;
    const std::size_t windows = wxTopLevelWindows.GetCount();
    EXPECT_THROW(request(
                     ImageFormat::PNG, [](wxDialog&) { typeKey(WXK_RETURN); }, &throwing),
                 std::runtime_error);
    throwing.throwsOnGet = true;
    EXPECT_THROW(requestAtOnce(getImageFormatDescriptor(ImageFormat::PNG), &throwing), std::runtime_error);
    EXPECT_TRUE(pumpUntil([windows] { return wxTopLevelWindows.GetCount() == windows; }));
    EXPECT_TRUE(frame->IsEnabled());
}

// The end of the dialog

TEST_F(ImageSaveSettingsDialogTest, okButton_returnsWhatTheUserHasClicked)
{
    const Result result = request(ImageFormat::TIFF, [](wxDialog& dialog) {
        click(*radioButtons(dialog).at(1));
        click(*alphaBox(dialog));
        clickButton(dialog, wxID_OK);
    });
    EXPECT_EQ(result, (Settings{U16, false}));
}

TEST_F(ImageSaveSettingsDialogTest, otherButtons_leaveTheDialogOpen)
{
    request(ImageFormat::PNG, [](wxDialog& dialog) {
        wxCommandEvent event(wxEVT_BUTTON, wxID_APPLY);
        dialog.GetEventHandler()->ProcessEvent(event);
        EXPECT_TRUE(dialog.IsModal());
        typeKey(WXK_ESCAPE);
    });
}

TEST_F(ImageSaveSettingsDialogTest, parent_mayBeNull)
{
    const DialogScript watched([](wxDialog&) { typeKey(WXK_RETURN); });
    EXPECT_EQ(Dialog::requestSettingsFromUser(nullptr, ImageFormat::PNG, nullptr), (Settings{U8, true}));
    EXPECT_EQ(watched.dialogs(), 1);
}

TEST_F(ImageSaveSettingsDialogTest, parent_mayBeAControl)
{
    const DialogScript watched([](wxDialog&) { typeKey(WXK_RETURN); });
    EXPECT_EQ(Dialog::requestSettingsFromUser(panel, ImageFormat::PNG, nullptr), (Settings{U8, true}));
    EXPECT_EQ(watched.dialogs(), 1);
}

TEST_F(ImageSaveSettingsDialogTest, parentDestroyedWhileTheDialogIsUp_cancels)
{
    const std::size_t others = wxTopLevelWindows.GetCount() - 1;
    const Result result = request(
        ImageFormat::PNG,
        [this](wxDialog&) {
            frame->Destroy();
            EXPECT_TRUE(pumpUntil([this] { return !frame; }));
        },
        &provider);
    EXPECT_EQ(result, Result());
    EXPECT_THAT(provider.calls, ElementsAre("get 1 1"));
    EXPECT_TRUE(pumpUntil([others] { return wxTopLevelWindows.GetCount() == others; }));
}

TEST_F(ImageSaveSettingsDialogTest, controlDestroyedThatIsTheParent_cancelsOrStaysUsable)
{
    auto* control = new wxPanel(panel);
    const DialogScript watched([control](wxDialog& dialog) {
        const wxWeakRef<wxDialog> open(&dialog);
        control->Destroy();
        pumpEvents();
        if (open && open->IsModal())
            typeKey(WXK_ESCAPE);
    });
    EXPECT_EQ(Dialog::requestSettingsFromUser(control, ImageFormat::PNG, nullptr), Result());
    EXPECT_EQ(watched.dialogs(), 1);
}

TEST_F(ImageSaveSettingsDialogTest, dialogDestroyedByTheProgram_cancels)
{
    const std::size_t windows = wxTopLevelWindows.GetCount();
    const auto destroy = [](wxDialog& dialog) {
        dialog.Destroy();
        dialog.Destroy();
    };
    EXPECT_EQ(request(ImageFormat::PNG, destroy), Result());
    EXPECT_TRUE(pumpUntil([windows] { return wxTopLevelWindows.GetCount() == windows; }));
}

struct ImageSaveSettingsBehindTest : ImageSaveSettingsFixture
{
    /// Requests the settings, asks a question in front of the dialog, and runs `destroy` then.
    void requestAndAsk(const std::function<void(wxDialog&)>& destroy)
    {
        const DialogScript script([&](wxDialog& dialog) {
            const MessageDialogDriver driver([&](Wx::MessageDialog&) { destroy(dialog); });
            answer = Wx::showYesNoDialog(Wx::getWindowNativeHandle(&dialog), L"Title", L"Sure?",
                                         Wx::MessageDialogIcon::QUESTION);
        });
        result = Dialog::requestSettingsFromUser(frame, ImageFormat::TIFF, nullptr);
    }

    bool answer = true;
    Result result = Settings{};
};

TEST_F(ImageSaveSettingsBehindTest, dialogDestroyedBehindAMessageDialog_cancelsBoth)
{
    requestAndAsk([](wxDialog& dialog) { dialog.Destroy(); });
    EXPECT_FALSE(result.has_value());
    EXPECT_FALSE(answer);
}

TEST_F(ImageSaveSettingsBehindTest, parentDestroyedBehindAMessageDialog_cancelsBoth)
{
    requestAndAsk([this](wxDialog&) { destroyFrame(); });
    EXPECT_FALSE(result.has_value());
    EXPECT_FALSE(answer);
}

TEST_F(ImageSaveSettingsDialogTest, afterTheDialog_theParentIsActiveAgain)
{
    request(ImageFormat::PNG, [](wxDialog&) { typeKey(WXK_RETURN); });
    EXPECT_TRUE(frame->IsEnabled());
    EXPECT_TRUE(pumpUntil([this] { return frame->IsActive(); }));
}

} // namespace
} // namespace Nolvex::Tests
