// SPDX-License-Identifier: MIT
#include "apps/gallery/SkinEditor.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/SkinFile.h"
#include "apps/picker/ChannelSlider.h"
#include "apps/picker/ColorPickerDialog.h"
#include "apps/picker/RecentColors.h"
#include "support/DefaultSkinGuard.h"
#include "support/Gestures.h"
#include "support/MessageDialogDriver.h"
#include "support/ModalDialogs.h"
#include "support/TemporaryFolder.h"

#include <wx/weakref.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Gallery::GalleryFrame;
using Gallery::SkinEditor;
using Tests::pumpUntil;

namespace {

constexpr std::size_t BACKGROUND = 2; // index of the field
constexpr std::size_t ACCENT = 5;

struct SkinEditorTest : testing::Test
{
    SkinEditorTest()
    {
        frame->Show();
        frame->Raise();
        EXPECT_TRUE(pumpUntil([&] { return frame->IsActive(); }));
    }

    ~SkinEditorTest() override { Tests::destroyNow(frame); }

    void clickSwatch(std::size_t field) const
    {
        const wxWindow* swatch = frame->skinEditor()->swatch(field);
        Tests::clickAt(swatch, {swatch->GetClientSize().x / 2, swatch->GetClientSize().y / 2});
    }

    /// The colour that the frame shows now.
    RgbBytes shownBackground() const
    {
        return Wx::toRgbBytes(frame->GetChildren().front()->GetBackgroundColour());
    }

    Tests::DefaultSkinGuard guard;
    GalleryFrame* frame = new GalleryFrame;
};

Picker::ColorPickerDialog* shownPicker()
{
    return Tests::activeModal<Picker::ColorPickerDialog>();
}

} // namespace

TEST_F(SkinEditorTest, swatches_haveTheColoursOfTheSkin)
{
    for (const int index : {1, 0}) {
        frame->chooseSkin(index);
        const Wx::GuiSkin& skin = GalleryFrame::skin(index);
        for (std::size_t i = 0; i < Gallery::SKIN_FIELDS.size(); ++i) {
            const Rgb color = frame->skinEditor()->swatch(i)->getColor();
            EXPECT_EQ(Wx::toRgbBytes(Wx::toWxColour(color)), skin.*Gallery::SKIN_FIELDS[i].color) << i;
        }
    }
}

TEST_F(SkinEditorTest, colourTriedInAPicker_isShownAtOnceAndTakenBackByCancel)
{
    const RgbBytes before = shownBackground();
    RgbBytes tried;
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [] { wxUIActionSimulator().Char(WXK_END); }},
        {"the program is recoloured", [&] { return shownBackground() != before; },
         [&] {
             tried = shownBackground();
             wxUIActionSimulator().Char(WXK_ESCAPE);
         }},
    });
    clickSwatch(BACKGROUND);
    EXPECT_EQ(tried, (RgbBytes{255, before.g, before.b}));
    EXPECT_TRUE(pumpUntil([&] { return shownBackground() == before; }));
    EXPECT_EQ(Wx::GuiSkin::DEFAULT(), guard.before);
}

TEST_F(SkinEditorTest, chosenColour_isAppliedToTheWholeProgram)
{
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [] { wxUIActionSimulator().Char(WXK_END); }},
        Tests::pressIn<Picker::ColorPickerDialog>(WXK_RETURN),
    });
    const wxWeakRef<wxWindow> before = frame->page();
    clickSwatch(BACKGROUND);
    EXPECT_TRUE(pumpUntil([&] { return !before; })) << "buttons keep the colours of a skin";
    EXPECT_EQ(Wx::GuiSkin::DEFAULT().background.r, 255);
    EXPECT_EQ(shownBackground().r, 255);
    EXPECT_EQ(frame->skinEditor()->choice()->getSelectedIndex(), 2) << "the skin is the user's own";
    EXPECT_EQ(frame->skinEditor()->choice()->getCount(), 3);
    frame->chooseSkin(0);
    EXPECT_EQ(frame->skinEditor()->choice()->getCount(), 2);
}

TEST_F(SkinEditorTest, droppedColour_isApplied)
{
    frame->skinEditor()->swatch(ACCENT)->setColor({1.0f, 5.0f, -3.0f, 1.0f}, true);
    EXPECT_TRUE(pumpUntil([] { return Wx::GuiSkin::DEFAULT().accent == RgbBytes{255, 255, 0}; }));
}

TEST_F(SkinEditorTest, frameDestroyedWhileAPickerRuns_endsThePicker)
{
    Tests::DialogRobot robot({
        {"the picker is shown", [] { return shownPicker() != nullptr; },
         [this] {
             frame->Destroy();
             frame = nullptr;
         }},
    });
    clickSwatch(BACKGROUND);
    EXPECT_TRUE(pumpUntil([] { return shownPicker() == nullptr; }));
    frame = new GalleryFrame;
}

TEST_F(SkinEditorTest, savedAndLoadedSkin_isApplied)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"skin.xml");
    frame->chooseSkin(1);
    frame->skinEditor()->swatch(ACCENT)->setColor({1, 0, 0, 1}, true);
    Tests::pumpEvents();
    frame->skinEditor()->save(file);
    const Wx::GuiSkin saved = Wx::GuiSkin::DEFAULT();
    frame->chooseSkin(0);
    frame->skinEditor()->load(file);
    EXPECT_TRUE(pumpUntil([&] { return Wx::GuiSkin::DEFAULT() == saved; }));
    EXPECT_EQ(saved.accent, (RgbBytes{255, 0, 0}));
    EXPECT_EQ(saved.text, GalleryFrame::skin(1).text);
}

TEST_F(SkinEditorTest, fileThatIsNoSkin_isExplainedAndChangesNothing)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"skin.xml", "<root><GuiSkin><text>000000</text></GuiSkin></root>");
    Tests::DialogRobot robot({Tests::pressIn<Wx::MessageDialog>(WXK_RETURN)});
    frame->skinEditor()->load(file);
    Tests::pumpEvents();
    EXPECT_EQ(Wx::GuiSkin::DEFAULT(), guard.before);
    EXPECT_EQ(frame->skinEditor()->skin(), guard.before);
}

TEST_F(SkinEditorTest, fileThatCannotBeWritten_isExplained)
{
    const Tests::TemporaryFolder folder;
    Tests::DialogRobot robot({Tests::pressIn<Wx::MessageDialog>(WXK_RETURN)});
    frame->skinEditor()->save(folder.path() / L"missing" / L"skin.xml");
}

TEST_F(SkinEditorTest, manyColoursTriedAtOnce_areShownOnce)
{
    int previews = 0;
    Wx::GuiSkin last;
    auto* editor = new SkinEditor(frame, {[&](const Wx::GuiSkin& skin) {
                                              ++previews;
                                              last = skin;
                                          },
                                          [](const Wx::GuiSkin&, const String&) {}});
    for (int i = 0; i <= 1000; ++i)
        editor->swatch(ACCENT)->onPreview(Rgb{static_cast<float>(i) / 1000.0f, 0, 0, 1});
    EXPECT_TRUE(pumpUntil([&] { return previews > 0; }));
    Tests::pumpEvents(200);
    EXPECT_EQ(previews, 1);
    EXPECT_EQ(last.accent, (RgbBytes{255, 0, 0}));
}
