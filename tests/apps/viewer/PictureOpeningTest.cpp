// SPDX-License-Identifier: MIT
// Opens pictures without a window.
#include "apps/viewer/PictureOpening.h"

#include "reading/ExrFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

using namespace Nolvex;
using Viewer::OpenPicture;
using Viewer::PictureId;

namespace {

struct PictureOpeningTest : testing::Test
{
    Tests::TemporaryFolder folder;
    Viewer::Workspace workspace;
    Array<String> reports;
    Array<String> complaints;
    Viewer::PictureOpening opening{workspace,
                                   {[this](const String& text) { reports.push_back(text); },
                                    [this](const String& text) { complaints.push_back(text); }}};

    Io::Path grey(const wchar_t* name, int width, int height = 1) const
    {
        return folder.file(
            name,
            "P5\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n" +
                std::string(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), '\x55'));
    }

    // A file with the layers "" (R, G, B), "light" and "mask".
    Io::Path layered(const wchar_t* name) const
    {
        Tests::ExrPart part;
        part.channels = {{"R"}, {"G"}, {"B"}, {"light.R"}, {"light.G"}, {"light.B"}, {"mask.Y"}};
        const Array<std::byte> content = Tests::exrFile({part});
        return folder.file(name,
                           std::string_view(reinterpret_cast<const char*>(content.data()), content.size()));
    }

    PictureId open(const Io::Path& file)
    {
        opening.open({file});
        opening.finish();
        EXPECT_NE(workspace.current(), nullptr);
        return workspace.current()->id;
    }

    void show(PictureId id)
    {
        opening.show(id);
        opening.finish();
    }

    // Shows the second layer of the current picture.
    void showLight()
    {
        opening.showLayer(1);
        opening.finish();
        EXPECT_EQ(shownLayer(), L"light");
    }

    String shownLayer() const
    {
        const Viewer::SharedPicture picture = workspace.currentPicture();
        return picture ? picture->layers()[picture->layer()].name : String(L"nothing");
    }

    int shownWidth() const
    {
        const Viewer::SharedPicture picture = workspace.currentPicture();
        return picture ? picture->size().x : 0;
    }

    // Takes the memory of a picture while another one is shown.
    void takeMemoryOf(PictureId id)
    {
        open(grey(L"other.pgm", 7));
        workspace.limitMemory(0);
        ASSERT_EQ(workspace.find(id)->picture, nullptr);
        workspace.limitMemory(Viewer::PictureOpening::MAX_MEMORY);
    }
};

} // namespace

TEST_F(PictureOpeningTest, layer_isKeptWhenThePictureIsReadAgain)
{
    const PictureId id = open(layered(L"a.exr"));
    showLight();
    opening.reload(id);
    opening.finish();
    EXPECT_EQ(shownLayer(), L"light");
}

TEST_F(PictureOpeningTest, layer_isKeptWhenTheFileIsOpenedAgain)
{
    open(layered(L"a.exr"));
    showLight();
    open(folder.file(L"a.exr"));
    EXPECT_EQ(shownLayer(), L"light");
    EXPECT_EQ(workspace.pictures().size(), 1U);
}

TEST_F(PictureOpeningTest, layer_isKeptWhenTheMemoryWasTaken)
{
    const PictureId id = open(layered(L"a.exr"));
    showLight();
    takeMemoryOf(id);
    show(id);
    EXPECT_EQ(shownLayer(), L"light");
}

TEST_F(PictureOpeningTest, layerThatTheFileHasNoMore_givesWayToTheMainLayer)
{
    const PictureId id = open(layered(L"a.exr"));
    showLight();
    const Array<std::byte> content = Tests::exrFile({Tests::ExrPart()});
    folder.file(L"a.exr", std::string_view(reinterpret_cast<const char*>(content.data()), content.size()));
    opening.reload(id);
    opening.finish();
    EXPECT_EQ(shownLayer(), L"");
}

TEST_F(PictureOpeningTest, pictureWhoseMemoryWasTaken_staysListedIfItsFileCannotBeRead)
{
    const Io::Path file = grey(L"a.pgm", 5);
    const PictureId id = open(file);
    takeMemoryOf(id);
    std::filesystem::remove(file.native());
    show(id);
    ASSERT_NE(workspace.find(id), nullptr);
    EXPECT_EQ(shownWidth(), 7) << "the picture that was shown";
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_NE(complaints[0].find(L"a.pgm"), String::NPOS);
    EXPECT_NE(complaints[0].find(L" The picture stays in the list."), String::NPOS);
    grey(L"a.pgm", 6);
    show(id);
    EXPECT_EQ(shownWidth(), 6) << "it can be read later";
}

TEST_F(PictureOpeningTest, fileThatWasNeverRead_leavesTheList)
{
    open(grey(L"a.pgm", 5));
    opening.open({folder.file(L"missing.png")});
    opening.finish();
    EXPECT_EQ(workspace.pictures().size(), 1U);
    EXPECT_EQ(complaints.size(), 1U);
    EXPECT_EQ(complaints[0].find(L"stays"), String::NPOS);
}

TEST_F(PictureOpeningTest, pictureSavedElsewhere_isReadAgainFromItsSource)
{
    const PictureId id = open(grey(L"a.pgm", 5));
    workspace.setFile(id, grey(L"saved.pgm", 9));
    opening.reload(id);
    opening.finish();
    EXPECT_EQ(shownWidth(), 5);
    takeMemoryOf(id);
    show(id);
    EXPECT_EQ(shownWidth(), 5);
    EXPECT_EQ(workspace.current()->name, L"saved.pgm");
    EXPECT_EQ(workspace.currentPicture()->name(), L"saved.pgm");
}

TEST_F(PictureOpeningTest, savedFile_isOpenedAsAPictureOfItsOwn)
{
    const PictureId id = open(grey(L"a.pgm", 5));
    workspace.setFile(id, grey(L"saved.pgm", 9));
    EXPECT_NE(open(folder.file(L"saved.pgm")), id);
    EXPECT_EQ(shownWidth(), 9);
    EXPECT_EQ(workspace.find(id)->picture->size().x, 5);
}

TEST_F(PictureOpeningTest, stateOfTheFile_isThatFromBeforeReading)
{
    // Large enough to be still read when the first share of it has been.
    const Io::Path file = grey(L"large.pgm", 8000, 6000);
    const Optional<Viewer::FileState> before = Viewer::stateOf(file);
    opening.open({file});
    while (opening.progress() == 0.0f && opening.isRunning())
        wxMilliSleep(1);
    const Io::Path next = grey(L"next.pgm", 5);
    // Windows refuses to replace a file while its bytes are read.
    std::error_code refusal;
    do {
        wxMilliSleep(1);
        std::filesystem::rename(next.native(), file.native(), refusal);
    } while (refusal && opening.isRunning());
    opening.finish();
    ASSERT_FALSE(refusal) << refusal.message();
    ASSERT_NE(workspace.current(), nullptr);
    EXPECT_EQ(shownWidth(), 8000);
    EXPECT_EQ(workspace.current()->sourceState, before);
    EXPECT_NE(workspace.current()->sourceState, Viewer::stateOf(file));
}

TEST_F(PictureOpeningTest, end_isToldOnceHoweverReadingEnds)
{
    int ends = 0;
    opening.onEnded = [&] { ++ends; };
    open(grey(L"a.pgm", 5));
    EXPECT_EQ(ends, 1);
    opening.open({folder.file(L"missing.png")});
    EXPECT_EQ(ends, 1);
    opening.finish();
    EXPECT_EQ(ends, 2) << "the file cannot be read";
    opening.open({grey(L"b.pgm", 5)});
    opening.cancel();
    EXPECT_EQ(ends, 3);
}

TEST_F(PictureOpeningTest, shownLayerChosenAgain_letsTheInterruptedReloadGoOn)
{
    const PictureId id = open(layered(L"a.exr"));
    opening.reload(id);
    ASSERT_TRUE(opening.isRunning());
    opening.showLayer(0);
    EXPECT_TRUE(opening.isRunning()) << "the file may have changed";
    opening.finish();
    EXPECT_EQ(reports.size(), 2U);
}

TEST_F(PictureOpeningTest, pictureOfTheScreen_letsTheInterruptedReloadGoOn)
{
    const PictureId id = open(grey(L"a.pgm", 5));
    opening.reload(id);
    opening.showUnsaved(Tests::coordinates(4, 3));
    EXPECT_TRUE(opening.isRunning());
    opening.finish();
    EXPECT_EQ(shownWidth(), 4) << "what is shown stays";
}
